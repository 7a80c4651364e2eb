// The character classes of XML 1.0 (Fifth Edition).
#pragma once

#include <array>
#include <cstdint>

extern "C" {
int xml___CharIsSpace(uint32_t c);         ///< White space: a character of S.
int xml___CharIsNameStartChar(uint32_t c); ///< NameStartChar.
int xml___CharIsNameChar(uint32_t c);      ///< NameChar.
int xml___CharIsPubidChar(uint32_t c);     ///< PubidChar.
}

namespace xml {

constexpr bool isSpace(uint32_t c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

constexpr bool isDigit(uint32_t c) { return c - '0' < 10; }

constexpr bool isHexDigit(uint32_t c) { return isDigit(c) || (c | 0x20) - 'a' < 6; }

constexpr bool isAsciiLetter(uint32_t c) { return (c | 0x20) - 'a' < 26; }

/// NameStartChar for any code point.
constexpr bool isNameStartAnywhere(uint32_t c) {
    struct Range {
        uint32_t first, last;
    };
    constexpr Range ranges[] = {
        {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
        {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
        {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF},
    };
    if (c < 0x80) return isAsciiLetter(c) || c == '_' || c == ':';
    for (Range range : ranges)
        if (c <= range.last) return c >= range.first;
    return false;
}

/// NameChar for any code point.
constexpr bool isNameAnywhere(uint32_t c) {
    return isDigit(c) || c == '-' || c == '.' || c == 0xB7 || (c >= 0x300 && c <= 0x36F) ||
           c == 0x203F || c == 0x2040 || isNameStartAnywhere(c);
}

enum : uint8_t { nameStartBit = 1, nameBit = 2 };

/// The name classes of the ASCII characters, which almost all names consist of.
inline constexpr std::array<uint8_t, 128> asciiNameClasses = [] {
    std::array<uint8_t, 128> classes{};
    for (uint32_t c = 0; c < 128; ++c)
        classes[c] = uint8_t((isNameStartAnywhere(c) ? nameStartBit : 0) |
                             (isNameAnywhere(c) ? nameBit : 0));
    return classes;
}();

constexpr bool isNameStart(uint32_t c) {
    return c < 128 ? asciiNameClasses[c] & nameStartBit : isNameStartAnywhere(c);
}

constexpr bool isName(uint32_t c) {
    return c < 128 ? asciiNameClasses[c] & nameBit : isNameAnywhere(c);
}

} // namespace xml
