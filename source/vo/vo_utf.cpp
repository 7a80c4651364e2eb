// Strings from and to UTF-8.
#include "source/vo/vo_utf.hpp"

#include "source/vo/vo_charset_codec.hpp"
#include "vo/vo_string.h"

namespace vo {

static bool decodeUtf8Text(voCharset, Bytes bytes, bool lenient, BufferBuilder &out) {
    if (!lenient) return validUtf8(bytes) && (out.append(bytes), true);
    const uint8_t *at = bytes.data(), *end = at + bytes.size();
    while (at < end) {
        int length = utf8SequenceAt(at, end);
        if (length == 0) break;
        out.append(length > 0 ? Bytes(at, size_t(length)) : replacement);
        at += length > 0 ? length : -length;
    }
    return true;
}

static bool encodeUtf8Text(voCharset, Bytes text, BufferBuilder &out) {
    return out.append(text), true;
}

constinit const Family families::utf8 = {decodeUtf8Text, encodeUtf8Text};

voString *stringFromUtf8(Bytes utf8) {
    const uint8_t *begin = utf8.data(), *end = begin + utf8.size();
    auto *string = createArray<voString>(voStringSort(), countUtf8(begin, end));
    widenUtf8(string->items(), begin, end);
    return string;
}

} // namespace vo

using namespace vo;

voString *voStringTryCreateFromUtf8(const char *bytes, int64_t count) {
    VO_ASSERT(bytes || count == 0);
    VO_ASSERT(count >= -1);
    Bytes utf8(reinterpret_cast<const uint8_t *>(bytes),
               count < 0 ? std::strlen(bytes) : size_t(count));
    return validUtf8(utf8) ? stringFromUtf8(utf8) : nullptr;
}

voBuffer *voStringTryToUtf8(voString *str) {
    VO_ASSERT(str);
    BufferBuilder out;
    return out.append(str) ? out.take() : nullptr;
}
