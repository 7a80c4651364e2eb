// UTF-8 as bytes that may be wrong, and strings from and to UTF-8.
#include "source/vo/vo_utf.hpp"

#include "source/vo/vo_charset_codec.hpp"
#include "vo/vo_string.h"

namespace vo {
namespace {

/// What stands at `at`: the length of a well-formed character, 0 for the beginning of one that
/// `end` cuts off, or minus the number of bytes that are ill-formed together, which are as many as
/// could still have begun a character.
int sequenceAt(const uint8_t *at, const uint8_t *end) {
    uint8_t lead = *at;
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return -1;
    int length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    // Narrower for the second byte where overlong forms, surrogates or too large values begin.
    uint8_t low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    uint8_t high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    for (int i = 1; i < length; ++i, low = 0x80, high = 0xBF) {
        if (at + i == end) return 0;
        if (at[i] < low || at[i] > high) return -i;
    }
    return length;
}

} // namespace

bool validUtf8(Bytes bytes) {
    const uint8_t *at = bytes.data(), *end = at + bytes.size();
    while ((at = skipAscii(at, end)) < end) {
        const uint8_t *stop = end - at < 64 ? end : at + 64;
        while (at < stop) {
            int length = sequenceAt(at, end);
            if (length <= 0) return false;
            at += length;
        }
    }
    return true;
}

bool decodeUtf8Text(voCharset, Bytes bytes, bool lenient, BufferBuilder &out) {
    if (!lenient) return validUtf8(bytes) && (out.append(bytes), true);
    const uint8_t *at = bytes.data(), *end = at + bytes.size();
    while (at < end) {
        int length = sequenceAt(at, end);
        if (length == 0) break;
        out.append(length > 0 ? Bytes(at, size_t(length)) : replacement);
        at += length > 0 ? length : -length;
    }
    return true;
}

bool encodeUtf8Text(voCharset, Bytes utf8, BufferBuilder &out) { return out.append(utf8), true; }

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
    constexpr ptrdiff_t blockSize = 4096;
    BufferBuilder out;
    const uint32_t *at = str->items(), *end = at + str->length;
    while (at < end) {
        const uint32_t *stop = end - at < blockSize ? end : at + blockSize;
        uint8_t *to = narrowToUtf8(out.reserve(size_t(stop - at) * 4), at, stop);
        if (!to) return nullptr;
        out.wrote(to);
        at = stop;
    }
    return out.take();
}
