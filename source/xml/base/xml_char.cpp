#include "source/xml/base/xml_char.hpp"

#include <string_view>

int xml___CharIsSpace(uint32_t c) { return xml::isSpace(c); }

int xml___CharIsNameStartChar(uint32_t c) { return xml::isNameStart(c); }

int xml___CharIsNameChar(uint32_t c) { return xml::isName(c); }

int xml___CharIsPubidChar(uint32_t c) {
    constexpr std::u32string_view others = U" \r\n-'()+,./:=?;!*#@$_%";
    return xml::isAsciiLetter(c) || xml::isDigit(c) || others.find(c) != others.npos;
}
