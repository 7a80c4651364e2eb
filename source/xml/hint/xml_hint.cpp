#include "xml/xml_hint.h"

#include "source/vo/vo_utf.hpp"
#include "source/xml/base/xml_locator.hpp"
#include "source/xml/base/xml_skip.hpp"
#include "source/xml/hint/xml_refused.hpp"
#include "source/xml/outline/xml_outline_builder.hpp"
#include "xml/xml_document_decode.h"
#include "xml/xml_ns_document_decode.h"
#include "xml/xml_options.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>

using vo::Ref;

namespace xml {
namespace {

constexpr const char *exampleDeclaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";

Message number(int64_t value, int base = 10) {
    char digits[24];
    return {digits, std::to_chars(digits, std::end(digits), value, base).ptr};
}

Message charsetName(voCharset charset) {
    Ref name(voCharsetToIanaName(charset));
    Ref bytes(voStringTryToUtf8(name));
    return Message(pieceOf(bytes).bytes());
}

/// A name from the input, as far as it fits into a message.
Message brief(std::string_view name) {
    constexpr size_t longest = 60;
    if (name.size() <= longest) return Message(name);
    size_t end = longest;
    while (end > 0 && (name[end] & 0xC0) == 0x80)
        --end; // not inside a character
    return Message(name.substr(0, end)) + "...";
}

Message quoted(std::string_view name) { return "'" + brief(name) + "'"; }
Message tag(std::string_view name) { return "<" + brief(name) + ">"; }

Message lowered(std::string_view ascii) {
    Message lower(ascii);
    for (char &ch : lower)
        if (ch >= 'A' && ch <= 'Z') ch = char(ch - 'A' + 'a');
    return lower;
}

/// Where `at` is, as the decoder counts unless it is told otherwise.
Message lineAndColumn(Piece text, const uint8_t *at) {
    Ref options(xmlOptionsCreate());
    Locator locator(text.begin, text.end, xmlOptionsDecodeNlfFlags(options), nullptr);
    const vo::Place place = locator.placeOf(at);
    return "line " + number(place.line) + ", column " + number(place.column);
}

// ---------------------------------------------------------------- errors without a place

/// The head of an input as UTF-8, whatever it is.
Ref<voBuffer> guess(voBuffer *input) {
    Ref head = headOf(input);
    const std::string_view bytes = pieceOf(head).bytes();
    const bool isMarked = bytes.starts_with("\xfe\xff") || bytes.starts_with("\xff\xfe");
    return Ref(voCharsetTryConvertBufferToUtf8WithFlags(
        isMarked ? VO_CHARSET_UTF_16 : VO_CHARSET_UTF_8, head, VO_CHARSET_FLAG_SNIFF));
}

/// Whether a declaration begins somewhere behind `at`.
bool hasDeclaration(std::string_view head, size_t at) {
    constexpr std::string_view opening = "<?xml";
    while ((at = head.find(opening, at)) != head.npos) {
        at += opening.size();
        if (skipSpace(head, at) > at || beginsWith(head, at, "?>")) return true;
    }
    return false;
}

Message missingDeclaration(voBuffer *input) {
    constexpr int64_t sample = 16;
    Ref utf8 = guess(input);
    const std::string_view head = pieceOf(utf8).bytes();
    const size_t start = skipSpace(head, 0);
    const std::string_view target = beginsWith(head, start, "<?") ? nameAt(head, start + 2) : "";
    if (target != "xml" && lowered(target) == "xml")
        return "write \"<?xml\" for \"<?" + Message(target) + "\"";
    if (hasDeclaration(head, start))
        return "the XML declaration must come first; remove what stands before it";
    constexpr int64_t openingSize = 6; // "<?xml "
    if (start > 0 && voBufferLength(input) > headLength &&
        placeOfChar(head.substr(start), openingSize) == head.npos)
        return "the XML declaration must begin within the first 1024 bytes";
    if (start == head.size() || head[start] == '<')
        return Message("a document begins with an XML declaration: ") + exampleDeclaration;
    return "this does not look like XML; it begins with \"" +
           Message(head.substr(0, placeOfChar(head, sample))) + "\"";
}

Message illFormedUtf8(const Refused &refused) {
    const int64_t offset = refused.firstIllFormed();
    if (offset < 0) return {};
    const uint8_t *begin = voBufferBacking(refused.xml), *bad = begin + offset;
    Message hexByte = number(*bad, 16);
    std::transform(hexByte.begin(), hexByte.end(), hexByte.begin(),
                   [](char ch) { return ch >= 'a' ? char(ch - 'a' + 'A') : ch; });
    Message hint = "byte 0x" + hexByte + " at offset " + number(offset) + " (" +
                   lineAndColumn(behindMark({begin, bad}), bad) + ") is not well-formed UTF-8";
    if (!refused.declaredEncoding().empty()) return hint;
    return hint + (refused.hasWholeDeclaration()
                       ? "; the declaration names no other encoding"
                       : "; an encoding counts if it is declared within the first 1024 bytes");
}

bool looksLikeUtf8(const Refused &refused) {
    const uint8_t *bytes = voBufferBacking(refused.xml);
    const uint8_t *end = bytes + voBufferLength(refused.xml);
    return std::find(bytes, end, 0) == end && refused.firstIllFormed() < 0;
}

bool isKnown(std::string_view charset) {
    Ref name(voStringTryCreateFromUtf8(charset.data(), int64_t(charset.size())));
    return VO_CHARSET_OK(voCharsetFromIanaName(name));
}

Message charsetHint(const Refused &refused) {
    const voCharset charset = refused.input.charset;
    const std::string_view declared = refused.declaredEncoding();
    if (voBufferLength(refused.xml) == 0) return "the input is empty";
    if (!refused.hasDeclaration()) return missingDeclaration(refused.xml);
    if (declared.empty() || !isKnown(declared)) {
        Message hint = charset == VO_CHARSET_UTF_8
                           ? illFormedUtf8(refused)
                           : "by its first bytes the text is in " + charsetName(charset) +
                                 ", but not all of it is valid there";
        if (!declared.empty())
            hint += "; the declared encoding " + quoted(declared) + " is not known";
        return hint;
    }
    if (charset == VO_CHARSET_UTF_8) return illFormedUtf8(refused);
    return "the declaration names the encoding " + quoted(declared) + ", but the bytes are " +
           (looksLikeUtf8(refused) ? "well-formed UTF-8" : "not all valid in it");
}

// ---------------------------------------------------------------- errors at a place

/// What a hint needs: the text, and the place in it that the error is about.
struct Site {
    const Refused &refused;
    std::string_view text;
    size_t at;
};

Message lineAndColumn(const Site &site, const char *at) {
    return lineAndColumn(site.refused.input.text, reinterpret_cast<const uint8_t *>(at));
}

/// `&` begins no reference. `where` says in which value.
Message referenceHint(std::string_view text, size_t at, const Message &where) {
    const std::string_view number = charRefAt(text, at);
    if (number.ends_with(';'))
        return "the reference \"" + brief(number) + "\"" + where + " stands for no character";
    if (!number.empty())
        return "end the reference \"" + brief(number) + "\"" + where + " with \";\"";
    const Message hint = "write &amp; for \"&\"" + where;
    return nameAt(text, at + 1).empty() ? hint : hint + ", or end the reference with \";\"";
}

Message faultHint(const Site &site, const AttributeScan &scan) {
    const AttributeView last = scan.attributes.empty() ? AttributeView() : scan.attributes.back();
    const auto &[label, value] = last;
    const Message name = quoted(label);
    switch (scan.fault) {
    case AttributeFault::none:
        return {};
    case AttributeFault::duplicate:
        return "attribute " + name + " is given twice, again in " +
               lineAndColumn(site, label.data());
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

bool isVersion(std::string_view value) {
    const auto *begin = reinterpret_cast<const uint8_t *>(value.data());
    const uint8_t *end = begin + value.size();
    return !value.empty() && skipVersionNum(begin, end) == end;
}

Message declarationHint(const Site &site) {
    constexpr std::string_view opening = "<?xml";
    const AttributeScan scan = scanAttributes(site.text, skipSpace(site.text, 0) + opening.size());
    if (scan.fault != AttributeFault::none) return faultHint(site, scan);
    bool hasVersion = false;
    for (const auto &[name, value] : scan.attributes) {
        hasVersion |= name == "version";
        if (name == "version" && !isVersion(value))
            return R"(the version is "1." and digits, such as "1.0")";
        if (name == "standalone" && value != "yes" && value != "no")
            return R"(the value of standalone is "yes" or "no")";
    }
    if (!hasVersion) return R"(the declaration must have a version, such as version="1.0")";
    return R"(the declaration must end in "?>")";
}

Message doctypeHint(const Site &) {
    return "remove the declaration, and replace references to entities that it defines";
}

/// Where the text goes on behind a part of it.
size_t behind(const Site &site, std::string_view part) {
    return size_t(part.data() - site.text.data()) + part.size();
}

constexpr const char *noTag = "write &lt; where \"<\" does not begin a tag";

/// White space may follow the `<` of a tag, but hardly ever does.
Message perhapsNoTag(std::string_view text, size_t at) {
    const bool isLikely = at + 1 < text.size() && isSpace(static_cast<unsigned char>(text[at + 1]));
    return isLikely ? Message("; ") + noTag : Message();
}

Message tagHint(const Site &site) {
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
    const Message fault = next.empty() ? Message(" does not end in \">\"")
                                       : " cannot hold \"" + Message(next) + "\" here";
    return subject + fault + perhapsNoTag(site.text, site.at);
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

Message mismatchHint(const Site &site) {
    const Piece text = site.refused.input.text;
    const uint8_t *open = openElement(site);
    if (!open) return "no element is open here";
    const auto at = size_t(open - text.begin);
    return "the open element is " + tag(tagNameAt(site.text, at)) + " of " +
           lineAndColumn(site, site.text.data() + at) + perhapsNoTag(site.text, at);
}

Message notClosedHint(const Site &site) {
    return tag(tagNameAt(site.text, site.at)) + " has no end tag" +
           perhapsNoTag(site.text, site.at);
}

Message instructionHint(const Site &site) {
    if (!contains(site.text, site.at, "?>")) return "the instruction does not end in \"?>\"";
    return "an instruction begins with a name, right after \"<?\"";
}

Message commentHint(const Site &site) {
    if (!contains(site.text, site.at + 4, "-->")) return "the comment does not end in \"-->\"";
    return "a comment is not empty, neither begins nor ends with \"-\" and holds no \"--\"";
}

Message cdataHint(const Site &) { return "the section does not end in \"]]>\""; }

Message attributesHint(const Site &site) {
    return faultHint(site, scanAttributes(site.text, behind(site, tagNameAt(site.text, site.at))));
}

Message textHint(const Site &site) {
    if (beginsWith(site.text, site.at, "&#"))
        return "character references are for attribute values; write the character itself";
    return referenceHint(site.text, site.at, {});
}

// ---------------------------------------------------------------- namespaces

/// The name at fault: the site is an element's `<` or an attribute's first character.
std::string_view nameAtFault(const Site &site) {
    const bool isElement = beginsWith(site.text, site.at, "<");
    return isElement ? tagNameAt(site.text, site.at) : nameAt(site.text, site.at);
}

Message namespaceHint(const Site &) {
    return "a namespace name holds no undefined entity, and is not the one reserved for \"xmlns\"";
}

Message prefixHint(const Site &site) {
    return "in " + quoted(nameAtFault(site)) + " the prefix is not a name";
}

Message unknownPrefixHint(const Site &site) {
    const std::string_view name = nameAtFault(site), prefix = name.substr(0, name.find(':'));
    if (prefix == "xmlns") return "the prefix xmlns is for declarations; no element has it";
    return "declare the prefix with xmlns:" + brief(prefix) + "=\"...\" here or further out";
}

Message localNameHint(const Site &site) {
    return "in " + quoted(nameAtFault(site)) + " a name without a colon must follow the prefix";
}

// ---------------------------------------------------------------- both layers

using SiteHint = Message (*)(const Site &);

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

Message hintAt(const Refused &refused, voParserLocation *optionalLocation, SiteHint hint) {
    if (refused.contradictsItself())
        return "the declaration is written in " + charsetName(refused.declaration.readable) +
               ", but names the encoding " + quoted(refused.declaredEncoding());
    if (!hint) return charsetHint(refused);
    const auto place = placeIn(refused, optionalLocation);
    return place ? hint({refused, refused.text(), *place}) : Message();
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

voString *stringOrNull(const Message &hint) {
    if (hint.empty()) return nullptr;
    return voStringTryCreateFromUtf8(hint.data(), int64_t(hint.size()));
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
    Ref location(xmlDecodeErrorLocation(err));
    const XML_DECODE_ERROR_CODE code = xmlDecodeErrorErrorCode(err);
    const xml::Refused refused(xml);
    if (!refused.contradictsItself() && !xml::gives(refused, code, location)) return nullptr;
    return xml::stringOrNull(xml::hintAt(refused, location, xml::plainHints[code]));
}

voString *xmlNsDecodeErrorTryHint(XML_NS_DECODE_ERROR *err, voBuffer *xml) {
    VO_ASSERT(err);
    VO_ASSERT(xml);
    Ref location(xmlNsDecodeErrorLocation(err));
    const XML_NS_DECODE_ERROR_CODE code = xmlNsDecodeErrorErrorCode(err);
    if (!xml::nsGives(xml, code, location)) return nullptr;
    return xml::stringOrNull(xml::hintAt(xml::Refused(xml), location, xml::nsHints[code]));
}

int64_t xmlDecodeErrorByteOffset(XML_DECODE_ERROR *err, voBuffer *xml) {
    VO_ASSERT(err);
    VO_ASSERT(xml);
    const xml::Refused refused(xml);
    if (xmlDecodeErrorErrorCode(err) != XML_DECODE_ERROR_CODE_CHARSET)
        return xml::byteOffsetOf(refused, Ref(xmlDecodeErrorLocation(err)));
    const bool isUtf8 = refused.hasDeclaration() && refused.input.charset == VO_CHARSET_UTF_8;
    return isUtf8 ? refused.firstIllFormed() : -1;
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
