#include "source/xml/hint/xml_refused.hpp"

#include "source/vo/vo_buffer_builder.hpp"

#include <algorithm>

using vo::Ref;

namespace xml {
namespace {

/// How many bytes the units of a character set have.
int unitSize(voCharset charset) {
    switch (charset) {
    case VO_CHARSET_UTF_16:
    case VO_CHARSET_UTF_16BE:
    case VO_CHARSET_UTF_16LE:
        return 2;
    case VO_CHARSET_UTF_32:
    case VO_CHARSET_UTF_32BE:
    case VO_CHARSET_UTF_32LE:
        return 4;
    default:
        return 1;
    }
}

} // namespace

Refused::Refused(voBuffer *bytes)
    : xml(bytes), declaration(findDeclaration(bytes)),
      input(readInput(bytes, VO_CHARSET_FLAG_BOM)) {}

bool Refused::contradictsItself() const {
    return unitSize(input.charset) != unitSize(declaration.readable);
}

/// What follows the place ends the input, whatever mark or escapes the input begins with.
int64_t Refused::byteOffset(size_t place) const {
    const std::string_view rest = text().substr(place);
    Ref utf8(voBufferCreateFromBytesCopy(rest.data(), int64_t(rest.size())));
    const vo::Bytes whole = vo::bytesOf(xml);
    for (voCharset charset : byteOrdersOf(input.charset)) {
        Ref encoded(vo___Utf8TryEncode(charset, utf8, 0));
        if (!encoded || encoded->length > xml->length) continue;
        const vo::Bytes tail = vo::bytesOf(encoded);
        if (std::ranges::equal(whole.last(tail.size()), tail)) return xml->length - encoded->length;
    }
    return -1;
}

std::array<voCharset, 2> byteOrdersOf(voCharset charset) {
    if (charset == VO_CHARSET_UTF_16) return {VO_CHARSET_UTF_16BE, VO_CHARSET_UTF_16LE};
    if (charset == VO_CHARSET_UTF_32) return {VO_CHARSET_UTF_32BE, VO_CHARSET_UTF_32LE};
    return {charset, charset};
}

size_t placeOfChar(std::string_view text, int64_t index) {
    const auto *begin = reinterpret_cast<const uint8_t *>(text.data());
    const uint8_t *at = begin, *end = begin + text.size();
    for (; index > 0 && at < end; --index)
        (void)vo::decodeUtf8(at, end);
    return index == 0 ? size_t(at - begin) : text.npos;
}

} // namespace xml
