#include "misfit.hpp"

#include "charset.hpp"
#include "walk.hpp"

#include <unordered_set>

namespace tool {

static bool fits(uint32_t ch, voCharset charset) {
    Ref encoded(voCharsetTryConvertStringToBufferWithFlags(charset, makeString(Chars(&ch, 1)), 0));
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

static std::optional<Place> placeAt(Chars text, size_t index) {
    Ref options(xmlOptionsCreate());
    Ref map(voParserLocationMapCreate(nullptr, xmlOptionsDecodeNlfFlags(options), text.data(),
                                      static_cast<int64_t>(text.size())));
    return placeOf(Ref(voParserLocationMapLookup(map, static_cast<int64_t>(index))));
}

static std::string describe(uint32_t ch) {
    const std::string name = "character U+" + hex(ch, 4);
    return isPrintable(ch) ? name + " '" + utf8(Chars(&ch, 1)) + "'" : name;
}

/// Looks for a misfit among the namespace names, in which references give way to what they stand
/// for.
class NamespaceNames {
  public:
    explicit NamespaceNames(voCharset wantedCharset) : charset(wantedCharset) {}

    template <class Node> void node(const Ref<Node> &node, size_t) {
        if constexpr (std::is_same_v<Node, XML_NS_ELEMENT>) search(node);
    }

    std::optional<uint32_t> found;
    std::optional<Place> place; ///< Of the element that declares the name.

  private:
    void search(XML_NS_ELEMENT *element) {
        Ref declared(xmlNsElementNamespaceMap(element));
        const int64_t length = declared && !found ? xmlNsNamespaceMapLength(declared) : 0;
        for (int64_t i = 0; i < length && !found; ++i) {
            Ref mapping(xmlNsNamespaceMapMappingAt(declared, i));
            Ref name(xmlNsNamespaceMappingNamespace(mapping));
            const Chars text = name ? chars(name) : Chars();
            const size_t index = indexOfMisfit(text, charset);
            if (index == text.size()) continue;
            found = text[index];
            place = placeOf(Ref(xmlNsElementLocation(element)));
        }
    }

    voCharset charset;
};

static constexpr const char *universal = "UTF-8 has every character";

static std::string hintAbout(uint32_t ch) {
    constexpr uint32_t firstSurrogate = 0xD800, lastSurrogate = 0xDFFF;
    const bool isSurrogate = ch >= firstSurrogate && ch <= lastSurrogate;
    return isSurrogate ? "a surrogate is not a character" : universal;
}

Misfit firstMisfit(const Source &source, voCharset charset) {
    const Chars text = source.text();
    const std::string lacks = charsetName(charset) + " lacks the ";
    const size_t index = indexOfMisfit(text, charset);
    if (index < text.size())
        return {placeAt(text, index), lacks + describe(text[index]), hintAbout(text[index])};
    NamespaceNames names(charset);
    const Decoded decoded = decode(source.bytes, {.namespaces = true, .locations = true});
    if (decoded.nsDocument) walk<Namespaced>(Ref(xmlNsDocumentItems(decoded.nsDocument)), names);
    if (!names.found)
        return {{}, lacks + "characters of the document as they follow each other", universal};
    return {names.place, lacks + describe(*names.found) + " of a namespace name",
            hintAbout(*names.found)};
}

} // namespace tool
