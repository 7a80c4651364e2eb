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

/// The head of an input in UTF-8.
struct Head {
    const uint8_t *at;
    const uint8_t *end;

    std::string_view bytes() const {
        return {reinterpret_cast<const char *>(at), size_t(end - at)};
    }
    bool skip(std::string_view token) {
        if (!bytes().starts_with(token)) return false;
        at += token.size();
        return true;
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
        const uint8_t *name = skipS(head.at, head.end);
        const uint8_t *nameEnd = skipName(name, head.end);
        const uint8_t *value = skipEq(nameEnd, head.end);
        const uint8_t *valueEnd = skipAttValue(value, head.end);
        if (nameEnd == name || value == nameEnd || valueEnd == value) return std::nullopt;
        if (Head{name, nameEnd}.bytes() == "encoding") {
            Head iana{value + 1, valueEnd - 1};
            voCharset named = voCharsetFromIanaName(
                Ref(voStringTryCreateFromUtf8(iana.bytes().data(), valueEnd - value - 2)));
            return VO_CHARSET_OK(named) ? std::optional(named) : std::nullopt;
        }
        head.at = valueEnd;
    }
}

/// The character set of an input that begins with a declaration when read in `candidate`.
std::optional<voCharset> charsetIfReadAs(voCharset candidate, voBuffer *bytes) {
    Ref text(voCharsetTryConvertBufferToUtf8WithFlags(candidate, bytes, VO_CHARSET_FLAG_SNIFF));
    if (!text) return std::nullopt;
    Head head{voBufferBacking(text), voBufferBacking(text) + voBufferLength(text)};
    head.at = skipS(head.at, head.end);
    if (!head.skip("<?xml")) return std::nullopt;
    if (head.at < head.end && isSpace(*head.at)) return declaredCharset(head).value_or(candidate);
    return head.skip("?>") ? std::optional(candidate) : std::nullopt;
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
