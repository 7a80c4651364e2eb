#include "misfit.hpp"

#include "charset.hpp"
#include "cursor.hpp"

#include <unordered_set>

namespace tool {

/// Before other text: a U+001B at the end would begin an escape of ISO-2022-JP.
static bool fits(uint32_t ch, voCharset charset) {
    const uint32_t text[] = {ch, ' ', ' ', ' '};
    Ref encoded(voCharsetTryConvertStringToBufferWithFlags(charset, makeString(Chars(text)), 0));
    return encoded;
}

/// Asks about each character once, of which a text has far fewer than it is long.
static size_t indexOfMisfit(Chars text, voCharset charset) {
    std::unordered_set<uint32_t> known;
    size_t index = 0;
    while (index < text.size() && (!known.insert(text[index]).second || fits(text[index], charset)))
        ++index;
    return index;
}

std::optional<Place> placeAt(Chars text, size_t index) {
    Ref options(xmlOptionsCreate());
    Ref map(voParserLocationMapCreate(nullptr, xmlOptionsDecodeNlfFlags(options), text.data(),
                                      static_cast<int64_t>(text.size())));
    return placeOf(Ref(voParserLocationMapLookup(map, static_cast<int64_t>(index))));
}

static std::string describe(uint32_t ch) {
    const std::string name = "character U+" + hex(ch, 4);
    return isPrintable(ch) ? name + " '" + utf8(Chars(&ch, 1)) + "'" : name;
}

/// A misfit in a namespace name, in which references give way to what they stand for.
struct NameMisfit {
    uint32_t ch;
    std::optional<Place> place; ///< Of the element that declares the name.
};

/// The first in a document whose namespaces are right.
static std::optional<NameMisfit> findNameMisfit(XML_DOCUMENT *document, voCharset charset) {
    Ref cursor(xmlCursorCreate(document));
    std::optional<uint32_t> found;
    std::optional<NameMisfit> first;
    const auto searchName = [&] {
        if (found) return;
        Ref text(xmlTextCreateValue(makeString(view(xmlCursorValue(cursor)))));
        Ref name(xmlTextTryUnescape(text));
        const size_t index = indexOfMisfit(chars(name), charset);
        if (index < chars(name).size()) found = chars(name)[index];
    };
    const auto search = [&](size_t) {
        if (first) return;
        visitDeclarations(searchName, cursor);
        if (found) first = {*found, placeOf(cursor)};
    };
    walk(search, cursor);
    return first;
}

static constexpr const char *universal = "UTF-8 has every character";

static std::string hintAbout(uint32_t ch) {
    constexpr uint32_t firstSurrogate = 0xD800, lastSurrogate = 0xDFFF;
    const bool isSurrogate = ch >= firstSurrogate && ch <= lastSurrogate;
    return isSurrogate ? "a surrogate is not a character" : universal;
}

/// The first in what would be written, such as a character that came of a reference. Its place is
/// not known.
static std::optional<uint32_t> findWrittenMisfit(XML_DOCUMENT *document, voCharset charset) {
    Ref copy(xmlDocumentCreateFrom(document));
    xmlDocumentSetCharset(copy.edit(), VO_CHARSET_UTF_8);
    Ref bytes(xmlDocumentTryEncode(copy, optionsWith(0)));
    if (!bytes) return std::nullopt;
    Ref text(voCharsetTryConvertBufferToStringWithFlags(VO_CHARSET_UTF_8, bytes, 0));
    const size_t index = indexOfMisfit(chars(text), charset);
    return index < chars(text).size() ? std::optional(chars(text)[index]) : std::nullopt;
}

Misfit firstMisfit(voBuffer *input, Chars text, XML_DOCUMENT *document) {
    const voCharset charset = xmlDocumentCharset(document);
    const std::string lacks = charsetName(charset) + " lacks the ";
    const size_t index = indexOfMisfit(text, charset);
    if (index < text.size())
        return {placeAt(text, index), lacks + describe(text[index]), hintAbout(text[index])};
    const Decoded decoded = decode(input, {.namespaces = true, .locations = true});
    std::optional<NameMisfit> name;
    if (decoded.nsDocument) name = findNameMisfit(decoded.document, charset);
    if (!name) {
        if (const auto ch = findWrittenMisfit(document, charset))
            return {{}, lacks + describe(*ch), hintAbout(*ch)};
        return {{}, lacks + "characters of the document as they follow each other", universal};
    }
    return {name->place, lacks + describe(name->ch) + " of a namespace name", hintAbout(name->ch)};
}

} // namespace tool
