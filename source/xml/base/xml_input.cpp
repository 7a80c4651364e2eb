#include "source/xml/base/xml_input.hpp"

#include "source/xml/base/xml_skip.hpp"

#include <algorithm>
#include <optional>
#include <string_view>

using vo::Ref;

namespace xml {
namespace {

/// How much of an input is looked at to find its character set, in bytes.
constexpr int64_t headLength = 1024;

constexpr voCharset unicodeCharsets[] = {
    VO_CHARSET_UTF_8,    VO_CHARSET_UTF_16BE, VO_CHARSET_UTF_16LE,
    VO_CHARSET_UTF_32BE, VO_CHARSET_UTF_32LE,
};

struct Head {
    const uint32_t *at;
    const uint32_t *end;

    bool skip(std::u32string_view token) {
        if (end - at < int64_t(token.size()) || !std::equal(token.begin(), token.end(), at))
            return false;
        at += token.size();
        return true;
    }
    bool equals(std::u32string_view token) const {
        return std::equal(at, end, token.begin(), token.end());
    }
};

Ref<voBuffer> headOf(voBuffer *bytes) {
    Ref head(vo::retained(bytes));
    if (voBufferLength(bytes) > headLength) voBufferDelOuter(head.edit(), 0, headLength);
    return head;
}

/// The character set that the declaration names, or nothing. `head` follows the "<?xml".
std::optional<voCharset> declaredCharset(Head head) {
    for (;;) {
        const uint32_t *name = skipS(head.at, head.end);
        const uint32_t *nameEnd = skipName(name, head.end);
        const uint32_t *value = skipEq(nameEnd, head.end);
        const uint32_t *valueEnd = skipAttValue(value, head.end);
        if (nameEnd == name || value == nameEnd || valueEnd == value) return std::nullopt;
        if (Head{name, nameEnd}.equals(U"encoding")) {
            Ref iana(voStringCreateFromCharsCopy(value + 1, valueEnd - value - 2));
            voCharset named = voCharsetFromIanaName(iana);
            return VO_CHARSET_OK(named) ? std::optional(named) : std::nullopt;
        }
        head.at = valueEnd;
    }
}

/// The character set of an input that begins with a declaration when read in `candidate`.
std::optional<voCharset> charsetIfReadAs(voCharset candidate, voBuffer *bytes) {
    Ref text(voCharsetTryConvertBufferToStringWithFlags(candidate, bytes, VO_CHARSET_FLAG_SNIFF));
    if (!text) return std::nullopt;
    Head head{voStringBacking(text), voStringBacking(text) + voStringLength(text)};
    head.at = skipS(head.at, head.end);
    if (!head.skip(U"<?xml")) return std::nullopt;
    if (head.at < head.end && isSpace(*head.at)) return declaredCharset(head).value_or(candidate);
    return head.skip(U"?>") ? std::optional(candidate) : std::nullopt;
}

std::optional<voCharset> findCharset(voBuffer *bytes) {
    Ref head = headOf(bytes);
    for (voCharset candidate : unicodeCharsets)
        if (auto charset = charsetIfReadAs(candidate, head)) return charset;
    return std::nullopt;
}

} // namespace

Input readInput(voBuffer *bytes, voCharsetFlags flags) {
    auto charset = findCharset(bytes);
    if (!charset) return {VO_CHARSET_UTF_8, {}};
    return {*charset, Ref(voCharsetTryConvertBufferToUtf8WithFlags(*charset, bytes, flags))};
}

} // namespace xml
