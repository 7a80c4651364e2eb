#include "text.hpp"

#include <utf8proc.h>

#include <array>

namespace tool {

Chars chars(voString *string) {
    return {voStringBacking(string), static_cast<size_t>(voStringLength(string))};
}

Ref<voString> makeString(std::string_view utf8) {
    Ref string(voStringTryCreateFromUtf8(utf8.data(), static_cast<int64_t>(utf8.size())));
    return string ? std::move(string) : Ref(voStringCreate());
}

Ref<voString> makeString(Chars text) {
    return Ref(voStringCreateFromCharsCopy(text.data(), static_cast<int64_t>(text.size())));
}

static void appendUtf8(std::string &out, uint32_t ch) {
    std::array<utf8proc_uint8_t, 4> bytes;
    const auto length = utf8proc_encode_char(static_cast<int32_t>(ch), bytes.data());
    out.append(reinterpret_cast<const char *>(bytes.data()), static_cast<size_t>(length));
}

std::string utf8(Chars text) {
    std::string out;
    for (uint32_t ch : text)
        appendUtf8(out, ch);
    return out;
}

std::string take(voString *string) {
    Ref owned(string);
    return utf8(chars(owned));
}

bool isPrintable(uint32_t ch) {
    switch (utf8proc_category(static_cast<int32_t>(ch))) {
    case UTF8PROC_CATEGORY_CC:
    case UTF8PROC_CATEGORY_CF:
    case UTF8PROC_CATEGORY_CS:
    case UTF8PROC_CATEGORY_CN:
    case UTF8PROC_CATEGORY_ZL:
    case UTF8PROC_CATEGORY_ZP:
        return false;
    default:
        return true;
    }
}

std::string hex(uint32_t value, size_t least) {
    std::string digits;
    for (; value != 0 || digits.size() < least; value /= 16)
        digits.insert(digits.begin(), "0123456789ABCDEF"[value % 16]);
    return digits;
}

static std::string escape(uint32_t ch) {
    switch (ch) {
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return "\\u{" + hex(ch, 1) + "}";
    }
}

std::string shown(uint32_t ch) { return isPrintable(ch) ? utf8(Chars(&ch, 1)) : escape(ch); }

std::string shown(Chars text) {
    std::string out;
    for (uint32_t ch : text)
        out += shown(ch);
    return out;
}

std::string shown(std::string_view bytes) {
    std::string out;
    while (!bytes.empty()) {
        int32_t ch;
        const auto length =
            utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t *>(bytes.data()),
                             static_cast<utf8proc_ssize_t>(bytes.size()), &ch);
        if (length > 0) {
            out += shown(static_cast<uint32_t>(ch));
        } else {
            out += "\\x" + hex(static_cast<unsigned char>(bytes.front()), 2);
        }
        bytes.remove_prefix(length > 0 ? static_cast<size_t>(length) : 1);
    }
    return out;
}

int shownWidth(uint32_t ch) {
    if (isPrintable(ch)) return utf8proc_charwidth(static_cast<int32_t>(ch));
    return static_cast<int>(escape(ch).size());
}

bool isNewline(uint32_t ch) {
    return (ch >= '\n' && ch <= '\r') || ch == 0x85 || ch == 0x2028 || ch == 0x2029;
}

} // namespace tool
