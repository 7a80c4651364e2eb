#include "source/xml/base/xml_input.hpp"

#include "source/vo/vo_utf.hpp"
#include "source/xml/base/xml_skip.hpp"

#include <algorithm>
#include <optional>
#include <string_view>

using vo::Ref;

namespace xml {
namespace {

constexpr voCharset unicodeCharsets[] = {
    VO_CHARSET_UTF_8,    VO_CHARSET_UTF_16BE, VO_CHARSET_UTF_16LE,
    VO_CHARSET_UTF_32BE, VO_CHARSET_UTF_32LE,
};

/// What is left of the head of an input in UTF-8.
struct Head : Piece {
    bool skip(std::string_view token) {
        if (!bytes().starts_with(token)) return false;
        begin += token.size();
        return true;
    }
};

voCharset charsetNamed(std::string_view name) {
    if (name == "UTF-8" || name == "utf-8") return VO_CHARSET_UTF_8; // most documents
    return voCharsetFromIanaName(Ref(voStringTryCreateFromUtf8(name.data(), int64_t(name.size()))));
}

/// The name of the encoding in a declaration; its begin is null where there is none. `head` is what
/// follows "<?xml". The search leaves it at the name "encoding" or at the first thing that is no
/// setting.
Piece findEncoding(Head &head) {
    for (;;) {
        head.begin = skipS(head.begin, head.end);
        const uint8_t *nameEnd = skipName(head.begin, head.end);
        const uint8_t *value = skipEq(nameEnd, head.end);
        const uint8_t *valueEnd = skipAttValue(value, head.end);
        if (nameEnd == head.begin || value == nameEnd || valueEnd == value) return {};
        if (Piece{head.begin, nameEnd}.bytes() == "encoding") return {value + 1, valueEnd - 1};
        head.begin = valueEnd;
    }
}

/// The character set that the declaration names, or nothing.
std::optional<voCharset> declaredCharset(Head &head) {
    const Piece name = findEncoding(head);
    const voCharset named = name.begin ? charsetNamed(name.bytes()) : -1;
    return VO_CHARSET_OK(named) ? std::optional(named) : std::nullopt;
}

/// The declaration that a head begins with when it is read in `candidate`.
Declaration declarationIfReadAs(voCharset candidate, voBuffer *head) {
    Ref text(voCharsetTryConvertBufferToUtf8WithFlags(candidate, head, VO_CHARSET_FLAG_SNIFF));
    if (!text) return {candidate, {}};
    Head rest{pieceOf(text)};
    rest.begin = skipS(rest.begin, rest.end);
    if (!rest.skip("<?xml")) return {candidate, {}};
    const bool isTarget = rest.begin < rest.end && isSpace(*rest.begin);
    if (!isTarget && !rest.bytes().starts_with("?>")) return {candidate, {}};
    return {candidate, std::move(text), rest};
}

/// The same without converting anything, for inputs that begin with a declaration in ASCII, as most
/// do. Nothing when a byte that is not ASCII comes too early to be sure.
std::optional<voCharset> charsetOfPlainHead(voBuffer *bytes) {
    const uint8_t *begin = voBufferBacking(bytes);
    Head head{behindMark({begin, begin + std::min(voBufferLength(bytes), headLength)})};
    head.end = vo::skipAscii(head.begin, head.end);
    if (!head.skip("<?xml") || head.begin == head.end || !isSpace(*head.begin)) return std::nullopt;
    if (const auto named = declaredCharset(head)) return named;
    return head.bytes().starts_with("?>") ? std::optional(VO_CHARSET_UTF_8) : std::nullopt;
}

std::optional<voCharset> findCharset(voBuffer *bytes) {
    if (const auto charset = charsetOfPlainHead(bytes)) return charset;
    const Declaration declaration = findDeclaration(bytes);
    if (!declaration.buffer) return std::nullopt;
    Head settings{declaration.settings};
    return declaredCharset(settings).value_or(declaration.readable);
}

} // namespace

Ref<voBuffer> headOf(voBuffer *bytes) {
    Ref head(vo::retained(bytes));
    if (voBufferLength(bytes) > headLength) voBufferDelOuter(head.edit(), 0, headLength);
    return head;
}

Declaration findDeclaration(voBuffer *bytes) {
    Ref head = headOf(bytes);
    for (voCharset candidate : unicodeCharsets)
        if (Declaration found = declarationIfReadAs(candidate, head); found.buffer) return found;
    return {VO_CHARSET_UTF_8, {}};
}

std::string_view declaredEncoding(const Declaration &declaration) {
    if (!declaration.buffer) return {};
    Head settings{declaration.settings};
    return findEncoding(settings).bytes();
}

Input readInput(voBuffer *bytes, voCharsetFlags flags) {
    const auto charset = findCharset(bytes);
    if (!charset) return {VO_CHARSET_UTF_8, {}};
    if (*charset == VO_CHARSET_UTF_8 && !(flags & VO_CHARSET_FLAG_SNIFF)) {
        const bool unmark = flags & VO_CHARSET_FLAG_BOM;
        const Piece text = unmark ? behindMark(pieceOf(bytes)) : pieceOf(bytes);
        if (!vo___Utf8IsValid(text.begin, text.size())) return {*charset, {}};
        return {*charset, Ref(vo::retained(bytes)), text};
    }
    Ref utf8(voCharsetTryConvertBufferToUtf8WithFlags(*charset, bytes, flags));
    const Piece text = utf8 ? pieceOf(utf8) : Piece{};
    return {*charset, std::move(utf8), text};
}

} // namespace xml
