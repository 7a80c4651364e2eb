#include "source/xml/hint/xml_words.hpp"

#include "source/xml/base/xml_locator.hpp"
#include "xml/xml_options.h"

#include <algorithm>
#include <charconv>
#include <iterator>

using vo::Ref;

namespace xml {

Message number(int64_t value, int base) {
    char digits[24];
    return {digits, std::to_chars(digits, std::end(digits), value, base).ptr};
}

Message charsetName(voCharset charset) {
    Ref name(voCharsetToIanaName(charset));
    Ref bytes(voStringTryToUtf8(name));
    return Message(pieceOf(bytes).bytes());
}

Message brief(std::string_view name) {
    constexpr size_t longest = 60;
    if (name.size() <= longest) return Message(name);
    size_t end = longest;
    while (end > 0 && (name[end] & 0xC0) == 0x80)
        --end; // not inside a character
    return Message(name.substr(0, end)) + "...";
}

Message quoted(std::string_view name) { return "'" + brief(name) + "'"; }
Message tag(std::string_view name) { return "<" + brief(name) + ">"; }

Message lowered(std::string_view text) {
    Message lower(text);
    for (char &ch : lower)
        if (ch >= 'A' && ch <= 'Z') ch = char(ch - 'A' + 'a');
    return lower;
}

vo::Place placeOf(Piece text, const uint8_t *at) {
    Ref options(xmlOptionsCreate());
    Locator locator(text.begin, text.end, xmlOptionsDecodeNlfFlags(options), nullptr);
    return locator.placeOf(at);
}

Message lineAndColumn(Piece text, const uint8_t *at) {
    const vo::Place place = placeOf(text, at);
    return "line " + number(place.line) + ", column " + number(place.column);
}

} // namespace xml
