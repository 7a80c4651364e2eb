#include "xml/xml_hint.h"

#include "source/vo/vo_location.hpp"
#include "source/xml/base/xml_skip.hpp"
#include "source/xml/hint/xml_charset_hint.hpp"
#include "source/xml/hint/xml_ill_formed.hpp"
#include "source/xml/outline/xml_outline_builder.hpp"
#include "xml/xml_document_decode.h"
#include "xml/xml_ns_document_decode.h"
#include "xml/xml_options.h"

#include <algorithm>
#include <iterator>
#include <optional>

using vo::Ref;

namespace xml {
namespace {

// ---------------------------------------------------------------- errors at a place

/// What a hint needs: the text, and the place in it that the error is about.
struct Site {
    const Refused &refused;
    std::string_view text;
    size_t at;
};

size_t offsetOf(const Site &site, std::string_view part) {
    return size_t(part.data() - site.text.data());
}

Message lineAndColumn(const Site &site, const char *at) {
    return lineAndColumn(site.refused.input.text, reinterpret_cast<const uint8_t *>(at));
}

/// A hint about a closer place in the text than the site's.
Advice closer(const Site &site, size_t at, Message message) {
    const Piece text = site.refused.input.text;
    return {std::move(message), placeOf(text, text.begin + std::min(at, site.text.size()))};
}

/// `&` begins no reference. `where` says in which value.
Message referenceHint(std::string_view text, size_t at, const Message &where) {
    const std::string_view number = charRefAt(text, at);
    if (number.ends_with(';'))
        return "the reference \"" + brief(number) + "\"" + where + " stands for no character";
    if (!number.empty())
        return "end the reference \"" + brief(number) + "\"" + where + " with \";\"";
    if (beginsWith(text, at, "&#"))
        return "after \"&#\"" + where + " comes a number and \";\", as in &#8364; and &#x20AC;";
    const Message hint = "write &amp; for \"&\"" + where;
    return nameAt(text, at + 1).empty() ? hint : hint + ", or end the reference with \";\"";
}

/// The first attribute's name that is `name`; there must be one.
std::string_view firstOf(const vo::Vec<AttributeView> &attributes, std::string_view name) {
    return std::ranges::find(attributes, name, &AttributeView::name)->name;
}

Message faultMessage(const Site &site, const AttributeScan &scan) {
    const AttributeView last = scan.attributes.empty() ? AttributeView() : scan.attributes.back();
    const auto &[label, value] = last;
    const Message name = quoted(label);
    switch (scan.fault) {
    case AttributeFault::none:
        return {};
    case AttributeFault::duplicate:
        return "attribute " + name + " is given twice, first in " +
               lineAndColumn(site, firstOf(scan.attributes, label).data());
    case AttributeFault::noEquals:
        return "attribute " + name + " has no value";
    case AttributeFault::noQuote:
        return "the value of attribute " + name + " must stand in quotes";
    case AttributeFault::notClosed:
        return "the value of attribute " + name + " has no closing quote";
    case AttributeFault::lessThan:
        return "write &lt; for \"<\" in the value of attribute " + name + ", or close its quote";
    case AttributeFault::badReference:
        return referenceHint(value, badReferenceIn(value), " in the value of attribute " + name);
    }
    VO_UNREACHABLE();
}

Advice faultHint(const Site &site, const AttributeScan &scan) {
    return closer(site, scan.faultAt, faultMessage(site, scan));
}

bool isVersion(std::string_view value) {
    const auto *begin = reinterpret_cast<const uint8_t *>(value.data());
    const uint8_t *end = begin + value.size();
    return !value.empty() && skipVersionNum(begin, end) == end;
}

Advice declarationHint(const Site &site) {
    constexpr std::string_view opening = "<?xml";
    const AttributeScan scan = scanAttributes(site.text, skipSpace(site.text, 0) + opening.size());
    if (scan.fault != AttributeFault::none) return faultHint(site, scan);
    bool hasVersion = false;
    for (const auto &[name, value] : scan.attributes) {
        hasVersion |= name == "version";
        if (name == "version" && !isVersion(value))
            return closer(site, offsetOf(site, value),
                          R"(the version is "1." and digits, such as "1.0")");
        if (name == "standalone" && value != "yes" && value != "no")
            return closer(site, offsetOf(site, value),
                          R"(the value of standalone is "yes" or "no")");
    }
    if (!hasVersion) return R"(the declaration must have a version, such as version="1.0")";
    return R"(the declaration must end in "?>")";
}

Advice doctypeHint(const Site &) {
    return "remove the declaration, and replace references to entities that it defines";
}

/// Where the text goes on behind a part of it.
size_t behind(const Site &site, std::string_view part) {
    return offsetOf(site, part) + part.size();
}

constexpr const char *noTag = "write &lt; where \"<\" does not begin a tag";

/// White space may follow the `<` of a tag, but hardly ever does.
Message perhapsNoTag(std::string_view text, size_t at) {
    const bool isLikely = at + 1 < text.size() && isSpace(static_cast<unsigned char>(text[at + 1]));
    return isLikely ? Message("; ") + noTag : Message();
}

Advice tagHint(const Site &site) {
    if (isConflictMark(site.text, site.at)) return conflictHint;
    if (beginsWith(site.text, site.at, "<!"))
        return "after \"<!\" only a comment or a CDATA section can follow";
    const bool isEnd = beginsWith(site.text, site.at, "</");
    const std::string_view name = tagNameAt(site.text, site.at + isEnd);
    if (name.empty()) return noTag;
    size_t end = behind(site, name);
    end = isEnd ? skipSpace(site.text, end) : scanAttributes(site.text, end).end;
    if (!isEnd && beginsWith(site.text, end, "/")) end = skipSpace(site.text, end + 1);
    const Message subject = "the tag " + quoted(name);
    const std::string_view next = charAt(site.text, end);
    if (next.empty()) return subject + " does not end in \">\"" + perhapsNoTag(site.text, site.at);
    if (isConflictMark(site.text, end)) return closer(site, end, conflictHint);
    return closer(site, end,
                  subject + " cannot hold \"" + Message(next) + "\" here" +
                      perhapsNoTag(site.text, site.at));
}

/// The `<` of the element that is open just before the site, found by decoding up to there; null
/// when there is none.
const uint8_t *openElement(const Site &site) {
    const Input &input = site.refused.input;
    const Piece before{input.text.begin, input.text.begin + site.at};
    const OutlineResult read = buildOutline(input.buffer, before, input.charset);
    const bool isOpen = !read.outline && read.code == XML_DECODE_ERROR_CODE_TAG_NOT_CLOSED;
    return isOpen ? read.place : nullptr;
}

Advice mismatchHint(const Site &site) {
    const Piece text = site.refused.input.text;
    const uint8_t *open = openElement(site);
    if (!open) return "no element is open here";
    const auto at = size_t(open - text.begin);
    return "the open element is " + tag(tagNameAt(site.text, at)) + " of " +
           lineAndColumn(site, site.text.data() + at) + perhapsNoTag(site.text, at);
}

Advice notClosedHint(const Site &site) {
    return tag(tagNameAt(site.text, site.at)) + " has no end tag" +
           perhapsNoTag(site.text, site.at);
}

Advice instructionHint(const Site &site) {
    if (!contains(site.text, site.at, "?>")) return "the instruction does not end in \"?>\"";
    return "an instruction begins with a name, right after \"<?\"";
}

Advice commentHint(const Site &site) {
    if (!contains(site.text, site.at + 4, "-->")) return "the comment does not end in \"-->\"";
    return "a comment is not empty, neither begins nor ends with \"-\" and holds no \"--\"";
}

Advice cdataHint(const Site &) { return "the section does not end in \"]]>\""; }

Advice attributesHint(const Site &site) {
    return faultHint(site, scanAttributes(site.text, behind(site, tagNameAt(site.text, site.at))));
}

Advice textHint(const Site &site) {
    const std::string_view number = charRefAt(site.text, site.at);
    if (isCharRef(site.text, site.at) || (!number.empty() && !number.ends_with(';')))
        return "character references are for attribute values; write the character itself";
    return referenceHint(site.text, site.at, {});
}

// ---------------------------------------------------------------- namespaces

/// The name at fault: the site is an element's `<` or an attribute's first character.
std::string_view nameAtFault(const Site &site) {
    const bool isElement = beginsWith(site.text, site.at, "<");
    return isElement ? tagNameAt(site.text, site.at) : nameAt(site.text, site.at);
}

Advice namespaceHint(const Site &) {
    return "a namespace name holds no undefined entity, and is not the one reserved for \"xmlns\"";
}

Advice prefixHint(const Site &site) {
    return "in " + quoted(nameAtFault(site)) + " the prefix is not a name";
}

Advice unknownPrefixHint(const Site &site) {
    const std::string_view name = nameAtFault(site), prefix = name.substr(0, name.find(':'));
    if (prefix == "xmlns") return "the prefix xmlns is for declarations; no element has it";
    return "declare the prefix with xmlns:" + brief(prefix) + "=\"...\" here or further out";
}

Advice localNameHint(const Site &site) {
    return "in " + quoted(nameAtFault(site)) + " a name without a colon must follow the prefix";
}

// ---------------------------------------------------------------- both layers

using SiteHint = Advice (*)(const Site &);

/// By error code. An error of the character set has no place.
constexpr SiteHint plainHints[] = {
    nullptr,         declarationHint, doctypeHint, tagHint,        mismatchHint, notClosedHint,
    instructionHint, commentHint,     cdataHint,   attributesHint, textHint,
};
static_assert(std::size(plainHints) == XML_DECODE_ERROR_CODE_TEXT + 1);

constexpr SiteHint nsHints[] = {namespaceHint, prefixHint, unknownPrefixHint, localNameHint};
static_assert(std::size(nsHints) == XML_NS_DECODE_ERROR_CODE_LOCAL_NAME + 1);

/// The place of an optional location in the text.
std::optional<size_t> placeIn(const Refused &refused, voParserLocation *optionalLocation) {
    if (!optionalLocation || !refused.input.buffer) return std::nullopt;
    const size_t place = placeOfChar(refused.text(), voParserLocationOffset(optionalLocation));
    return place == Message::npos ? std::nullopt : std::optional(place);
}

Advice adviceAt(const Refused &refused, voParserLocation *optionalLocation, SiteHint hint) {
    if (refused.contradictsItself())
        return "the declaration is written in " + charsetName(refused.declaration.readable) +
               ", but names the encoding " + quoted(refused.declaredEncoding());
    if (!hint) return charsetAdvice(refused);
    const auto place = placeIn(refused, optionalLocation);
    return place ? hint({refused, refused.text(), *place}) : Advice();
}

/// Whether decoding gives this error at this place. Hints rely on it: bytes that are not those that
/// were refused may have anything there.
bool gives(const Refused &refused, XML_DECODE_ERROR_CODE code, voParserLocation *optionalLocation) {
    if (code == XML_DECODE_ERROR_CODE_CHARSET) return !refused.input.buffer;
    const auto place = placeIn(refused, optionalLocation);
    const Input &input = refused.input;
    if (!place) return false;
    const OutlineResult read = buildOutline(input.buffer, input.text, input.charset);
    return !read.outline && read.code == code && read.place == input.text.begin + *place;
}

/// The same for decoding the namespaces.
bool nsGives(voBuffer *xml, XML_NS_DECODE_ERROR_CODE code, voParserLocation *optionalLocation) {
    if (!optionalLocation) return false;
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), XML_FLAG_DECODE_LOCATION);
    Ref result(xmlDocumentDecode(xml, options, nullptr));
    if (!xmlDecodeResultHasDocument(result)) return false;
    Ref nsResult(xmlNsDocumentTryDecode(Ref(xmlDecodeResultDocument(result))));
    if (!xmlNsDecodeResultHasError(nsResult)) return false;
    Ref error(xmlNsDecodeResultError(nsResult));
    Ref location(xmlNsDecodeErrorLocation(error));
    return xmlNsDecodeErrorErrorCode(error) == code &&
           voParserLocationOffset(location) == voParserLocationOffset(optionalLocation);
}

Advice adviceOn(XML_DECODE_ERROR *err, voBuffer *xml) {
    Ref location(xmlDecodeErrorLocation(err));
    const XML_DECODE_ERROR_CODE code = xmlDecodeErrorErrorCode(err);
    const Refused refused(xml);
    if (!refused.contradictsItself() && !gives(refused, code, location)) return {};
    return adviceAt(refused, location, plainHints[code]);
}

Advice adviceOn(XML_NS_DECODE_ERROR *err, voBuffer *xml) {
    Ref location(xmlNsDecodeErrorLocation(err));
    const XML_NS_DECODE_ERROR_CODE code = xmlNsDecodeErrorErrorCode(err);
    if (!nsGives(xml, code, location)) return {};
    return adviceAt(Refused(xml), location, nsHints[code]);
}

voString *stringOrNull(std::string_view text) {
    if (text.empty()) return nullptr;
    return voStringTryCreateFromUtf8(text.data(), int64_t(text.size()));
}

int64_t byteOffsetOf(const Refused &refused, voParserLocation *optionalLocation) {
    const auto place = placeIn(refused, optionalLocation);
    return place ? refused.byteOffset(*place) : -1;
}

} // namespace
} // namespace xml

voString *xmlDecodeErrorTryHint(XML_DECODE_ERROR *err, voBuffer *xml) {
    VO_ASSERT(err);
    VO_ASSERT(xml);
    return xml::stringOrNull(xml::adviceOn(err, xml).text);
}

voString *xmlNsDecodeErrorTryHint(XML_NS_DECODE_ERROR *err, voBuffer *xml) {
    VO_ASSERT(err);
    VO_ASSERT(xml);
    return xml::stringOrNull(xml::adviceOn(err, xml).text);
}

voParserLocation *xmlDecodeErrorTryHintLocation(XML_DECODE_ERROR *err, voBuffer *xml) {
    VO_ASSERT(err);
    VO_ASSERT(xml);
    const auto place = xml::adviceOn(err, xml).place;
    if (!place) return nullptr;
    return voParserLocationCreate(nullptr, place->offset, place->line, place->column);
}

int64_t xmlDecodeErrorByteOffset(XML_DECODE_ERROR *err, voBuffer *xml) {
    VO_ASSERT(err);
    VO_ASSERT(xml);
    const xml::Refused refused(xml);
    if (xmlDecodeErrorErrorCode(err) != XML_DECODE_ERROR_CODE_CHARSET)
        return xml::byteOffsetOf(refused, Ref(xmlDecodeErrorLocation(err)));
    if (!refused.hasDeclaration() || refused.input.buffer) return -1;
    return xml::findIllFormed(xml, refused.input.charset).offset;
}

int64_t xmlNsDecodeErrorByteOffset(XML_NS_DECODE_ERROR *err, voBuffer *xml) {
    VO_ASSERT(err);
    VO_ASSERT(xml);
    return xml::byteOffsetOf(xml::Refused(xml), Ref(xmlNsDecodeErrorLocation(err)));
}

voString *xmlDocumentTryDecodeText(voBuffer *xml) {
    VO_ASSERT(xml);
    const xml::Input input = xml::readInput(xml, VO_CHARSET_FLAG_BOM);
    if (!input.buffer) return nullptr;
    return voStringTryCreateFromUtf8(input.text.bytes().data(), input.text.size());
}

voString *xmlDocumentDecodeTextLeniently(voBuffer *xml) {
    VO_ASSERT(xml);
    const xml::Declaration declaration = xml::findDeclaration(xml);
    const voCharset charset = declaration.buffer ? xml::readInput(xml, VO_CHARSET_FLAG_BOM).charset
                                                 : xml::charsetByBeginning(xml);
    Ref utf8 = xml::readLeniently(xml, charset);
    return voStringTryCreateFromUtf8(xml::pieceOf(utf8).bytes().data(), voBufferLength(utf8));
}

voString *xmlDocumentTryDeclaredEncoding(voBuffer *xml) {
    VO_ASSERT(xml);
    return xml::stringOrNull(xml::declaredEncoding(xml::findDeclaration(xml)));
}
