#include "hint.hpp"

#include "charset.hpp"
#include "markup.hpp"

#include <algorithm>

namespace tool {
namespace {

constexpr std::string_view exampleDeclaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";

/// A name from the input, as far as it fits into a message.
std::string brief(std::string_view name) {
    constexpr size_t longest = 60;
    if (name.size() <= longest) return shown(name);
    size_t end = longest;
    while (end > 0 && (name[end] & 0xC0) == 0x80)
        --end; // not inside a character
    return shown(name.substr(0, end)) + "...";
}

std::string quoted(std::string_view name) { return "'" + brief(name) + "'"; }
std::string tag(Chars name) { return "<" + brief(utf8(name)) + ">"; }

std::string at(int64_t line, int64_t column) {
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

// ---------------------------------------------------------------- errors without a place

/// The head of an input as text, whatever it is.
Ref<voString> guess(voBuffer *input) {
    Ref head = headOf(input);
    const std::string_view bytes(reinterpret_cast<const char *>(voBufferBacking(head)),
                                 static_cast<size_t>(voBufferLength(head)));
    const bool marked = bytes.starts_with("\xfe\xff") || bytes.starts_with("\xff\xfe");
    return Ref(voCharsetTryConvertBufferToStringWithFlags(
        marked ? VO_CHARSET_UTF_16 : VO_CHARSET_UTF_8, head, VO_CHARSET_FLAG_SNIFF));
}

std::string missingDeclaration(voBuffer *input) {
    constexpr size_t sample = 16;
    Ref text = guess(input);
    const Chars head = chars(text);
    const size_t start = skipSpace(head, 0);
    if (contains(head, start, "<?xml "))
        return "the XML declaration must come first; remove what stands before it";
    constexpr size_t openingSize = 6; // "<?xml "
    if (start > 0 && voBufferLength(input) > headLength && head.size() - start < openingSize)
        return "the XML declaration must begin within the first 1024 bytes";
    if (start == head.size() || head[start] == '<')
        return "a document begins with an XML declaration: " + std::string(exampleDeclaration);
    return "this does not look like XML; it begins with \"" +
           shown(head.first(std::min(head.size(), sample))) + "\"";
}

std::string illFormedUtf8(voBuffer *input, const Encoding &encoding) {
    const auto place = firstIllFormed(input);
    if (!place) return {};
    const uint8_t byte = voBufferBacking(input)[place->byteOffset];
    std::string hint = "byte 0x" + hex(byte, 2) + " at offset " +
                       std::to_string(place->byteOffset) + " (" + at(place->line, place->column) +
                       ") is not well-formed UTF-8";
    if (!encoding.declared.empty()) return hint;
    return hint + (encoding.isWhole ? "; the declaration names no other encoding"
                                    : "; an encoding counts if it is declared within the first "
                                      "1024 bytes");
}

bool looksLikeUtf8(voBuffer *input) {
    const uint8_t *bytes = voBufferBacking(input);
    const uint8_t *end = bytes + voBufferLength(input);
    return std::find(bytes, end, 0) == end && !firstIllFormed(input);
}

std::string charsetHint(const Source &source) {
    const Encoding &encoding = source.encoding;
    if (voBufferLength(source.bytes) == 0) return "the input is empty";
    if (!encoding.hasDeclaration) return missingDeclaration(source.bytes);
    if (encoding.declared.empty() || !encoding.isKnown) {
        std::string hint = encoding.charset == VO_CHARSET_UTF_8
                               ? illFormedUtf8(source.bytes, encoding)
                               : "by its first bytes the text is in " +
                                     charsetName(encoding.charset) +
                                     ", but not all of it is valid there";
        if (!encoding.declared.empty())
            hint += "; the declared encoding " + quoted(encoding.declared) + " is not known";
        return hint;
    }
    if (encoding.charset == VO_CHARSET_UTF_8) return illFormedUtf8(source.bytes, encoding);
    return "the declaration names the encoding " + quoted(encoding.declared) +
           ", but the bytes are " +
           (looksLikeUtf8(source.bytes) ? "well-formed UTF-8" : "not all valid in it");
}

// ---------------------------------------------------------------- errors at a place

/// What a hint needs: the text, and the character the message is about.
struct Site {
    const Source &source;
    Chars text;
    size_t at;
};

std::string faultHint(const AttributeScan &scan) {
    if (scan.fault == AttributeFault::none) return {};
    const std::string name = quoted(scan.attributes.back().name);
    switch (scan.fault) {
    case AttributeFault::duplicate:
        return "attribute " + name + " is given twice";
    case AttributeFault::noEquals:
        return "attribute " + name + " has no value";
    case AttributeFault::noQuote:
        return "the value of attribute " + name + " must stand in quotes";
    case AttributeFault::notClosed:
        return "the value of attribute " + name + " has no closing quote";
    case AttributeFault::lessThan:
        return "write &lt; for \"<\" in the value of attribute " + name + ", or close its quote";
    default:
        return "write &amp; for \"&\" in the value of attribute " + name;
    }
}

std::string declarationHint(const Site &site) {
    constexpr std::string_view opening = "<?xml";
    const AttributeScan scan = scanAttributes(site.text, skipSpace(site.text, 0) + opening.size());
    if (scan.fault != AttributeFault::none) return faultHint(scan);
    bool hasVersion = false;
    for (const auto &[name, value] : scan.attributes) {
        hasVersion |= name == "version";
        if (name == "version" && !xmlValueVersionNumOk(makeString(value)))
            return R"(the version is "1." and digits, such as "1.0")";
        if (name == "standalone" && utf8(value) != "yes" && utf8(value) != "no")
            return R"(the value of standalone is "yes" or "no")";
    }
    if (!hasVersion) return R"(the declaration must have a version, such as version="1.0")";
    return R"(the declaration must end in "?>")";
}

std::string doctypeHint(const Site &) {
    return "remove the declaration, and replace references to entities that it defines";
}

/// Where the text goes on behind a part of it.
size_t behind(const Site &site, Chars part) {
    return static_cast<size_t>(part.data() - site.text.data()) + part.size();
}

std::string tagHint(const Site &site) {
    if (beginsWith(site.text, site.at, "<!"))
        return "after \"<!\" only a comment or a CDATA section can follow";
    const bool isEnd = beginsWith(site.text, site.at, "</");
    const Chars name = tagNameAt(site.text, site.at + isEnd);
    if (name.empty()) return "write &lt; where \"<\" does not begin a tag";
    size_t end = behind(site, name);
    end = isEnd ? skipSpace(site.text, end) : scanAttributes(site.text, end).end;
    if (!isEnd && beginsWith(site.text, end, "/")) end = skipSpace(site.text, end + 1);
    const std::string subject = "the tag " + quoted(utf8(name));
    if (end == site.text.size()) return subject + " does not end in \">\"";
    return subject + " cannot hold \"" + shown(site.text[end]) + "\" here";
}

/// The place of the element that is open just before the site, found by decoding up to there.
std::optional<Place> openElement(const Site &site) {
    Ref before(voStringCreateFromLeading(site.source.string, static_cast<int64_t>(site.at)));
    Ref bytes(voCharsetTryConvertStringToBufferWithFlags(site.source.encoding.charset, before, 0));
    if (!bytes) return std::nullopt;
    const Decoded decoded = decode(bytes, {.locations = true});
    if (!decoded.failure || decoded.failure->code != "XML_DECODE_ERROR_CODE_TAG_NOT_CLOSED")
        return std::nullopt;
    return decoded.failure->place;
}

std::string mismatchHint(const Site &site) {
    const auto open = openElement(site);
    if (!open) return "no element is open here";
    const Chars name = tagNameAt(site.text, static_cast<size_t>(open->offset));
    return "the open element is " + tag(name) + " of " + at(open->line, open->column);
}

std::string notClosedHint(const Site &site) {
    return tag(tagNameAt(site.text, site.at)) + " has no end tag";
}

std::string instructionHint(const Site &site) {
    if (!contains(site.text, site.at, "?>")) return "the instruction does not end in \"?>\"";
    return "an instruction begins with a name, right after \"<?\"";
}

std::string commentHint(const Site &site) {
    if (!contains(site.text, site.at + 4, "-->")) return "the comment does not end in \"-->\"";
    return "a comment is not empty, neither begins nor ends with \"-\" and holds no \"--\"";
}

std::string cdataHint(const Site &) { return "the section does not end in \"]]>\""; }

std::string attributesHint(const Site &site) {
    return faultHint(scanAttributes(site.text, behind(site, tagNameAt(site.text, site.at))));
}

std::string textHint(const Site &site) {
    if (beginsWith(site.text, site.at, "&#"))
        return "character references are for attribute values; write the character itself";
    if (!nameAt(site.text, site.at + 1).empty())
        return "write &amp; for \"&\", or end the reference with \";\"";
    return "write &amp; for \"&\"";
}

// ---------------------------------------------------------------- namespaces

/// The name at fault: the site is an element's `<` or an attribute's first character.
std::string nameAtFault(const Site &site) {
    const bool isElement = beginsWith(site.text, site.at, "<");
    return utf8(isElement ? tagNameAt(site.text, site.at) : nameAt(site.text, site.at));
}

std::string namespaceHint(const Site &) {
    return "a namespace name holds no undefined entity, and is not the one reserved for \"xmlns\"";
}

std::string prefixHint(const Site &site) {
    return "in " + quoted(nameAtFault(site)) + " the prefix is not a name";
}

std::string unknownPrefixHint(const Site &site) {
    const std::string name = nameAtFault(site);
    const std::string prefix = brief(name.substr(0, name.find(':')));
    return "declare the prefix with xmlns:" + prefix + "=\"...\" here or further out";
}

std::string localNameHint(const Site &site) {
    return "in " + quoted(nameAtFault(site)) + " a name without a colon must follow the prefix";
}

struct Entry {
    std::string_view code;
    std::string (*hint)(const Site &);
};

constexpr Entry entries[] = {
    {"XML_DECODE_ERROR_CODE_XML_DECLARATION", declarationHint},
    {"XML_DECODE_ERROR_CODE_DOCTYPE", doctypeHint},
    {"XML_DECODE_ERROR_CODE_TAG", tagHint},
    {"XML_DECODE_ERROR_CODE_TAG_MISMATCH", mismatchHint},
    {"XML_DECODE_ERROR_CODE_TAG_NOT_CLOSED", notClosedHint},
    {"XML_DECODE_ERROR_CODE_PROCESSING_INSTRUCTION", instructionHint},
    {"XML_DECODE_ERROR_CODE_COMMENT", commentHint},
    {"XML_DECODE_ERROR_CODE_CDATA", cdataHint},
    {"XML_DECODE_ERROR_CODE_ATTRIBUTE_LIST", attributesHint},
    {"XML_DECODE_ERROR_CODE_TEXT", textHint},
    {"XML_NS_DECODE_ERROR_CODE_NAMESPACE", namespaceHint},
    {"XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX", prefixHint},
    {"XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX_UNKNOWN", unknownPrefixHint},
    {"XML_NS_DECODE_ERROR_CODE_LOCAL_NAME", localNameHint},
};

} // namespace

std::string hintFor(const Source &source, const Failure &failure) {
    const Encoding &encoding = source.encoding;
    if (encoding.contradictsItself())
        return "the declaration is written in " + charsetName(encoding.readable) +
               ", but names the encoding " + quoted(encoding.declared);
    if (failure.code == "XML_DECODE_ERROR_CODE_CHARSET") return charsetHint(source);
    const size_t size = source.text().size();
    if (!failure.place || static_cast<size_t>(failure.place->offset) > size) return {};
    for (const Entry &entry : entries)
        if (entry.code == failure.code)
            return entry.hint({source, source.text(), static_cast<size_t>(failure.place->offset)});
    return {};
}

} // namespace tool
