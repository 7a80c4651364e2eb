// UTF-8 by its definition, to hold the fast code against.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace test {

inline std::string naiveUtf8(std::u32string_view chars) {
    std::string utf8;
    for (uint32_t ch : chars) {
        int more = ch < 0x80 ? 0 : ch < 0x800 ? 1 : ch < 0x10000 ? 2 : 3;
        constexpr uint32_t marks[] = {0, 0xC0, 0xE0, 0xF0};
        utf8 += char(marks[more] | ch >> (6 * more));
        while (more--)
            utf8 += char(0x80 | ((ch >> (6 * more)) & 0x3F));
    }
    return utf8;
}

/// Nothing unless the bytes are exactly what encodes the scalar values that they seem to hold.
inline std::optional<std::u32string> naiveDecode(std::string_view utf8) {
    std::u32string chars;
    for (size_t at = 0; at < utf8.size();) {
        auto lead = uint8_t(utf8[at]);
        size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        uint32_t ch = lead & (length == 1 ? 0x7F : 0x7F >> length);
        for (size_t i = 1; i < length && at + i < utf8.size(); ++i)
            ch = ch << 6 | (uint8_t(utf8[at + i]) & 0x3F);
        bool scalar = ch < 0xD800 || (ch > 0xDFFF && ch <= 0x10FFFF);
        std::u32string one(1, char32_t(ch));
        if (!scalar || naiveUtf8(one) != utf8.substr(at, length)) return std::nullopt;
        chars += one;
        at += length;
    }
    return chars;
}

} // namespace test
