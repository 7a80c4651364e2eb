#include "vo/vo_charset.h"

#include "source/vo/vo_charset_codec.hpp"
#include "source/vo/vo_utf.hpp"
#include "vo/vo_string.h"

#include <string_view>

using namespace vo;

namespace {

/// Whether the bytes are their own text in UTF-8.
bool isUtf8(voCharset charset, Bytes bytes) {
    if (charset == VO_CHARSET_UTF_8) return validUtf8(bytes);
    // The escapes of ISO-2022-JP are ASCII too.
    if (charset > VO_CHARSET_UTF_8 || charset == VO_CHARSET_ISO_2022_JP) return false;
    const uint8_t *end = bytes.data() + bytes.size();
    return skipAscii(bytes.data(), end) == end;
}

/// U+FEFF in the character set; empty where it is no mark or the byte order is open.
Bytes markOf(voCharset charset) {
    static constexpr uint8_t utf8[] = {0xEF, 0xBB, 0xBF};
    static constexpr uint8_t big[] = {0x00, 0x00, 0xFE, 0xFF};
    static constexpr uint8_t little[] = {0xFF, 0xFE, 0x00, 0x00};
    static constexpr uint8_t gb18030[] = {0x84, 0x31, 0x95, 0x33};
    switch (charset) {
    case VO_CHARSET_GB18030:
        return gb18030;
    case VO_CHARSET_UTF_8:
        return utf8;
    case VO_CHARSET_UTF_16BE:
        return Bytes(big).last(2);
    case VO_CHARSET_UTF_16LE:
        return Bytes(little).first(2);
    case VO_CHARSET_UTF_32BE:
        return big;
    case VO_CHARSET_UTF_32LE:
        return little;
    default:
        return {};
    }
}

bool beginsWith(Bytes bytes, Bytes prefix) {
    return bytes.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), bytes.begin());
}

static_assert(VO_CHARSET_UTF_16BE == VO_CHARSET_UTF_16 + 1 &&
              VO_CHARSET_UTF_16LE == VO_CHARSET_UTF_16 + 2 &&
              VO_CHARSET_UTF_32BE == VO_CHARSET_UTF_32 + 1 &&
              VO_CHARSET_UTF_32LE == VO_CHARSET_UTF_32 + 2);

bool isSelfMarking(voCharset charset) {
    return charset == VO_CHARSET_UTF_16 || charset == VO_CHARSET_UTF_32;
}

/// Whether little-endian bytes without a mark begin like a document.
bool beginsLikeDocument(Bytes bytes, size_t unit) {
    static constexpr std::string_view beginnings = "<\t\n\r ";
    return bytes.size() >= unit && beginnings.find(char(bytes[0])) != std::string_view::npos &&
           std::all_of(bytes.begin() + 1, bytes.begin() + ptrdiff_t(unit),
                       [](uint8_t byte) { return byte == 0; });
}

/// Gives UTF-16 and UTF-32 the byte order that their bytes have; other character sets have one.
voCharset withByteOrder(voCharset charset, Bytes bytes) {
    if (!isSelfMarking(charset)) return charset;
    voCharset big = charset + 1, little = charset + 2;
    if (beginsWith(bytes, markOf(big))) return big;
    if (beginsWith(bytes, markOf(little))) return little;
    return beginsLikeDocument(bytes, charset == VO_CHARSET_UTF_16 ? 2 : 4) ? little : big;
}

/// Well-formed UTF-8 in another character set.
voBuffer *encoded(voCharset charset, voBuffer *utf8, voCharsetFlags flags) {
    bool marked =
        isSelfMarking(charset) || (flags & VO_CHARSET_FLAG_BOM && charset >= VO_CHARSET_UTF_8);
    if (isSelfMarking(charset)) ++charset;
    if (!marked && (charset == VO_CHARSET_UTF_8 || isUtf8(charset, bytesOf(utf8))))
        return retained(utf8);
    BufferBuilder out;
    if (marked) out.append(markOf(charset));
    return charsetOf(charset).family.encode(charset, bytesOf(utf8), out) ? out.take() : nullptr;
}

} // namespace

voBuffer *vo___Utf8TryEncode(voCharset charset, voBuffer *utf8, voCharsetFlags flags) {
    return encoded(charset, utf8, flags);
}

int vo___Utf8IsValid(const uint8_t *bytes, int64_t count) {
    return validUtf8({bytes, size_t(count)});
}

voBuffer *voCharsetTryConvertBufferToUtf8WithFlags(voCharset charset, voBuffer *buffer,
                                                   voCharsetFlags flags) {
    VO_ASSERT(VO_CHARSET_OK( charset ));
    VO_ASSERT(buffer);
    bool unmark = isSelfMarking(charset) || flags & (VO_CHARSET_FLAG_BOM | VO_CHARSET_FLAG_SNIFF);
    Bytes bytes = bytesOf(buffer);
    charset = withByteOrder(charset, bytes);
    if (unmark && beginsWith(bytes, markOf(charset))) bytes = bytes.subspan(markOf(charset).size());
    if (bytes.size() == size_t(buffer->length) && isUtf8(charset, bytes)) return retained(buffer);
    BufferBuilder out;
    bool lenient = flags & VO_CHARSET_FLAG_SNIFF;
    return charsetOf(charset).family.decode(charset, bytes, lenient, out) ? out.take() : nullptr;
}

voBuffer *voCharsetTryConvertUtf8ToBufferWithFlags(voCharset charset, voBuffer *utf8,
                                                   voCharsetFlags flags) {
    VO_ASSERT(VO_CHARSET_OK( charset ));
    VO_ASSERT(utf8);
    return validUtf8(bytesOf(utf8)) ? encoded(charset, utf8, flags) : nullptr;
}

voString *voCharsetTryConvertBufferToStringWithFlags(voCharset charset, voBuffer *buffer,
                                                     voCharsetFlags flags) {
    Ref utf8(voCharsetTryConvertBufferToUtf8WithFlags(charset, buffer, flags));
    return utf8 ? stringFromUtf8(bytesOf(utf8)) : nullptr;
}

voBuffer *voCharsetTryConvertStringToBufferWithFlags(voCharset charset, voString *string,
                                                     voCharsetFlags flags) {
    VO_ASSERT(VO_CHARSET_OK( charset ));
    VO_ASSERT(string);
    Ref utf8(voStringTryToUtf8(string));
    return utf8 ? encoded(charset, utf8, flags) : nullptr;
}
