#include "encoding.hpp"

#include "markup.hpp"

#include <utf8proc.h>

#include <algorithm>
#include <array>

namespace tool {

Ref<voBuffer> headOf(voBuffer *input) {
    Ref head(voBufferRetain(input));
    if (voBufferLength(head) > headLength) voBufferDelOuter(head.edit(), 0, headLength);
    return head;
}

static std::string declaredIn(Chars head, size_t attributes) {
    for (const Attribute &attribute : scanAttributes(head, attributes).attributes)
        if (attribute.name == "encoding") return utf8(attribute.value);
    return {};
}

/// How many bytes the units of a character set have.
static int unitSize(voCharset charset) {
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

bool Encoding::contradictsItself() const { return unitSize(charset) != unitSize(readable); }

Encoding encodingOf(voBuffer *input) {
    constexpr std::array<voCharset, 5> candidates = {VO_CHARSET_UTF_8, VO_CHARSET_UTF_16BE,
                                                     VO_CHARSET_UTF_16LE, VO_CHARSET_UTF_32BE,
                                                     VO_CHARSET_UTF_32LE};
    constexpr std::string_view opening = "<?xml";
    Ref head = headOf(input);
    for (voCharset candidate : candidates) {
        Ref text(
            voCharsetTryConvertBufferToStringWithFlags(candidate, head, VO_CHARSET_FLAG_SNIFF));
        if (!text) continue;
        const Chars found = chars(text);
        const size_t start = skipSpace(found, 0), end = start + opening.size();
        if (!beginsWith(found, start, opening)) continue;
        if (skipSpace(found, end) == end && !beginsWith(found, end, "?>")) continue;
        const std::string name = declaredIn(found, end);
        const voCharset declared = voCharsetFromIanaName(makeString(name));
        const bool isKnown = VO_CHARSET_OK(declared);
        return {.hasDeclaration = true,
                .declared = name,
                .isKnown = isKnown,
                .isWhole = contains(found, end, "?>"),
                .charset = isKnown ? declared : candidate,
                .readable = candidate};
    }
    return {};
}

Source::Source(voBuffer *input)
    : bytes(input), encoding(encodingOf(input)),
      string(voCharsetTryConvertBufferToStringWithFlags(encoding.charset, input,
                                                        VO_CHARSET_FLAG_BOM)) {}

std::optional<IllFormed> firstIllFormed(voBuffer *utf8) {
    const uint8_t *bytes = voBufferBacking(utf8);
    const int64_t length = voBufferLength(utf8);
    IllFormed place{0, 1, 1};
    while (place.byteOffset < length) {
        int32_t ch = 0;
        const auto used =
            utf8proc_iterate(bytes + place.byteOffset, length - place.byteOffset, &ch);
        if (used <= 0) return place;
        place.byteOffset += used;
        place.line += ch == '\n';
        place.column = ch == '\n' ? 1 : place.column + 1;
    }
    return std::nullopt;
}

} // namespace tool
