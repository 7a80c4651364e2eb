#include "finding.hpp"

#include "charset.hpp"
#include "markup.hpp"
#include "text.hpp"

#include "xml/xml.h"

#include <algorithm>

namespace tool {
namespace {

/// An error of Expat, and where it stands.
struct Scene {
    std::string_view text;
    size_t at;
    XML_Error code;
    Surroundings around = surroundingsOf(text, at);

    bool isBesideRoot() const { return around.open.empty(); }
    bool isInMarkup() const { return around.markup != std::string_view::npos; }
    std::string_view from(size_t place) const { return text.substr(std::min(place, text.size())); }
    bool isAt(size_t place, std::string_view token) const { return from(place).starts_with(token); }
};

// ---------------------------------------------------------------- characters

/// White space stands for the end of the text.
uint32_t charAt(std::string_view utf8) {
    if (utf8.empty()) return ' ';
    Ref character = makeString(utf8.substr(0, 1));
    for (size_t length = 2; chars(character).empty() && length <= 4; ++length)
        character = makeString(utf8.substr(0, length));
    return chars(character).empty() ? 0xFFFD : chars(character).front();
}

bool isXmlChar(uint32_t ch) {
    return ch >= 0x20 ? ch != 0xFFFE && ch != 0xFFFF : ch == '\t' || ch == '\n' || ch == '\r';
}

bool isInNames(uint32_t ch) {
    const uint32_t name[] = {'a', ch};
    return xmlValueNameOk(makeString(Chars(name)));
}

Finding badChar(size_t at, uint32_t ch) {
    return {at, "character that XML 1.0 does not have",
            "remove U+" + hex(ch, 4) + "; it cannot be written as a reference either"};
}

Finding strayChar(size_t at, uint32_t ch) {
    return {at, "character that cannot stand here", "XML 1.0 allows no \"" + shown(ch) + "\" here"};
}

// ---------------------------------------------------------------- markup

/// In whatever letters.
bool isCalledXml(std::string_view markup) {
    constexpr std::string_view opening = "<?xml";
    if (markup.size() <= opening.size() || !markup.starts_with("<?")) return false;
    const auto lowered = [](char ch) { return static_cast<char>(ch | 0x20); };
    const char next = markup[opening.size()];
    return std::ranges::equal(markup.substr(2, 3), opening.substr(2), {}, lowered) &&
           (isXmlSpace(next) || next == '?');
}

Finding laterDeclaration(const Scene &scene, size_t at) {
    if (scene.isAt(at, "<?xml"))
        return {at, "XML declaration behind the beginning of the document",
                "it stands at the very beginning or nowhere, and no processing instruction is "
                "called xml"};
    return {at, "processing instruction called xml in capital letters",
            "XML keeps such names for itself; use another one"};
}

Finding laterDoctype(size_t at) {
    return {at, "DOCTYPE declaration that cannot stand here",
            "it stands in front of the root element, once"};
}

Finding besideRoot(const Scene &scene, size_t at) {
    if (isCalledXml(scene.from(at))) return laterDeclaration(scene, at);
    if (scene.isAt(at, "<!DOCTYPE")) return laterDoctype(at);
    if (scene.isAt(at, "<![CDATA["))
        return {at, "CDATA section beside the root element", "put it into the root element"};
    if (scene.isAt(at, "<"))
        return {at, "several root elements",
                "a document has one root element; put them all into one"};
    return {at, "text beside the root element",
            "there can only be white space, comments and processing instructions"};
}

Finding badMarkup(const Scene &scene, uint32_t ch) {
    const size_t markup = scene.around.markup, at = scene.at;
    if (isCalledXml(scene.from(markup))) return laterDeclaration(scene, markup);
    if (scene.isAt(markup, "<!DOCTYPE")) return laterDoctype(markup);
    const char before = scene.text[at - 1];
    const bool isSpace = at < scene.text.size() && isXmlSpace(scene.text[at]);
    if (isSpace && at == markup + 1)
        return {at, "white space behind \"<\"", "remove it, or write &lt; for the \"<\""};
    if (isSpace && before == '/') return {at, "white space behind \"/\"", "remove it"};
    if ((before == '\'' || before == '"') && isInNames(ch)) {
        const std::string_view name = scene.from(at);
        return {at, "no white space between attributes",
                "put a space in front of '" +
                    std::string(name.substr(0, name.find_first_of(" \t\r\n=/>"))) + "'"};
    }
    if (ch >= 0x80 && isInNames(ch))
        return {at, "character that not every XML reader takes in a name",
                "before its fifth edition XML 1.0 had no U+" + hex(ch, 4) + " in names"};
    return strayChar(at, ch);
}

// ---------------------------------------------------------------- texts

/// The "&#" of the reference that a place is within, or npos.
size_t charReferenceAround(const Scene &scene) {
    size_t at = scene.at;
    while (at > 0 && scene.text[at - 1] != '&' && scene.text[at - 1] != '<')
        --at;
    const bool isReference = at > 0 && scene.isAt(at - 1, "&#");
    const size_t end = scene.text.find_first_not_of("#xX0123456789abcdefABCDEF", at);
    return isReference && end >= scene.at ? at - 1 : scene.text.npos;
}

Finding badToken(const Scene &scene) {
    const uint32_t ch = charAt(scene.from(scene.at));
    if (!isXmlChar(ch)) return badChar(scene.at, ch);
    if (const size_t reference = charReferenceAround(scene); reference != scene.text.npos)
        return {reference, "character reference malformed",
                "it is \"&#\" and a number, or \"&#x\" and a hexadecimal one, and ends with \";\"",
                true};
    if (scene.isInMarkup()) return badMarkup(scene, ch);
    if (scene.isBesideRoot())
        return besideRoot(scene, skipXmlSpace(scene.text, scene.around.textBegin));
    if (scene.at >= 2 && scene.isAt(scene.at - 2, "]]>"))
        return {scene.at - 2, "\"]]>\" in a text", "write ]]&gt; for \"]]>\""};
    return strayChar(scene.at, ch);
}

bool isDefined(std::string_view reference) {
    constexpr std::string_view defined[] = {"&lt;", "&gt;", "&amp;", "&quot;", "&apos;"};
    return std::ranges::count(defined, reference) || reference.starts_with("&#");
}

/// Expat blames the tag for a reference in one of its attributes.
Finding undefinedEntity(const Scene &scene) {
    const auto next = [&](size_t at) {
        return std::min(scene.text.find('&', at), scene.text.size());
    };
    size_t at = next(scene.at);
    while (at < scene.text.size() && isDefined(referenceAt(scene.text, at)))
        at = next(at + 1);
    return {at, "undefined entity",
            "without a DOCTYPE only &lt; &gt; &amp; &quot; and &apos; are defined; write the "
            "character itself",
            true};
}

} // namespace

Finding describe(std::string_view text, Verdict verdict) {
    const Scene scene{text, verdict.at, verdict.code};
    switch (scene.code) {
    case XML_ERROR_NO_ELEMENTS:
        return {scene.at, "no root element", "a document has exactly one root element"};
    case XML_ERROR_JUNK_AFTER_DOC_ELEMENT:
    case XML_ERROR_SYNTAX:
        return besideRoot(scene, scene.at);
    case XML_ERROR_INVALID_TOKEN:
        return badToken(scene);
    case XML_ERROR_UNDEFINED_ENTITY:
        return undefinedEntity(scene);
    case XML_ERROR_BAD_CHAR_REF:
        return {scene.at, "reference to a character that XML 1.0 does not have", "remove it", true};
    case XML_ERROR_MISPLACED_XML_PI:
        return laterDeclaration(scene, scene.at);
    case XML_ERROR_XML_DECL:
        return {scene.at, "XML declaration malformed",
                "it has a version, an encoding and standalone, in this order, with white space in "
                "front of each"};
    default:
        if (scene.isBesideRoot() && !scene.isInMarkup() && !scene.isAt(scene.at, "<"))
            return besideRoot(scene, scene.at);
        return {scene.at, XML_ErrorString(scene.code), {}};
    }
}

Finding describeEncoding(std::string_view text, XML_Error code) {
    const std::string_view declared = declaredEncoding(text);
    const size_t at = declared.empty() ? 0 : static_cast<size_t>(declared.data() - text.data());
    if (code == XML_ERROR_INCORRECT_ENCODING)
        return {at, "encoding that the text is not in",
                "name the encoding of the bytes, or leave it out"};
    if (declared.empty() || charsetNamed(declared) >= 0)
        return {at, "encoding that not every XML reader knows",
                "all know UTF-8 and UTF-16; 'voxml convert --to UTF-8' writes the document in one"};
    const voCharset closest = closestCharset(declared);
    return {at, "unknown encoding",
            closest >= 0 ? "did you mean " + charsetName(closest) + "?" : "all readers know UTF-8"};
}

} // namespace tool
