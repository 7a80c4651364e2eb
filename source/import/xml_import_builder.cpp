#include "source/import/xml_import_builder.hpp"

#include "source/import/xml_import_newlines.hpp"
#include "source/import/xml_import_parser.hpp"
#include "source/import/xml_import_tag.hpp"
#include "source/import/xml_import_text.hpp"
#include "source/vo/vo_hash.hpp"
#include "source/xml/base/xml_locator.hpp"
#include "xml/xml.h"

#include <cstring>
#include <optional>

using vo::Ref;

namespace xml {
namespace {

struct NameHash {
    using is_transparent = void;
    size_t operator()(std::string_view name) const {
        return vo::hashBytes(name.data(), name.size());
    }
};
template <class Value> using ByName =
    std::unordered_map<Bytes, Value, NameHash, std::equal_to<>,
                       vo::Allocator<std::pair<const Bytes, Value>>>;

Ref<voString> string(std::string_view utf8) {
    return Ref(voStringTryCreateFromUtf8(utf8.data(), int64_t(utf8.size())));
}

/// Takes what Expat reports, one method a handler, and builds the tree from it. Elements that are
/// open stand on a stack, each without the one above it.
class Builder {
  public:
    Builder(const ImportInput &source, const XML_IMPORT_OPTIONS &wanted,
            voParserLocation *optionalStart)
        : input(source), text(source.text()), options(wanted), repertoire(source.charset),
          parser(XML_ParserCreate(source.isUtf8 ? "UTF-8" : nullptr)),
          document(xmlDocumentCreate()), items(xmlItemsCreate()) {
        VO_ASSERT(parser);
        const Piece counted = behindMark(text);
        if (wanted.locations && source.isUtf8)
            locator.emplace(counted.begin, counted.end, xmlNewlines, optionalStart);
        if (optionalStart) xmlDocumentSetLocation(document.edit(), optionalStart);
        xmlDocumentSetCharset(document.edit(), source.charset);
    }

    ImportResult run() {
        setUp();
        if (!parse()) {
            const auto place = int64_t(XML_GetErrorByteIndex(parser.get()));
            return {{},
                    stopped ? *stopped : XML_GetErrorCode(parser.get()),
                    std::clamp<int64_t>(place, 0, text.size())};
        }
        if (!fits) xmlDocumentSetCharset(document.edit(), VO_CHARSET_UTF_8);
        xmlDocumentSetItems(document.edit(), items);
        return {std::move(document)};
    }

  private:
    template <auto method> struct Handler;
    template <class... Arguments, void (Builder::*method)(Arguments...)> struct Handler<method> {
        static void XMLCALL call(void *self, Arguments... arguments) {
            (static_cast<Builder *>(self)->*method)(arguments...);
        }
    };
    template <auto method> static constexpr auto handler = &Handler<method>::call;

    void setUp() {
        XML_Parser to = parser.get();
        XML_SetUserData(to, this);
        XML_SetXmlDeclHandler(to, handler<&Builder::declaration>);
        XML_SetDoctypeDeclHandler(to, handler<&Builder::startDoctype>,
                                  handler<&Builder::endDoctype>);
        XML_SetEntityDeclHandler(to, handler<&Builder::entityDeclaration>);
        XML_SetElementHandler(to, handler<&Builder::startElement>, handler<&Builder::endElement>);
        XML_SetCharacterDataHandler(to, handler<&Builder::characterData>);
        XML_SetCdataSectionHandler(to, handler<&Builder::startCdata>, handler<&Builder::endCdata>);
        XML_SetProcessingInstructionHandler(to, handler<&Builder::processingInstruction>);
        XML_SetCommentHandler(to, handler<&Builder::comment>);
        XML_SetDefaultHandlerExpand(to, handler<&Builder::other>);
        XML_SetParamEntityParsing(to, XML_PARAM_ENTITY_PARSING_ALWAYS); // those in the document
        XML_SetBillionLaughsAttackProtectionActivationThreshold(
            to, static_cast<unsigned long long>(options.mostExpanded));
        XML_SetBillionLaughsAttackProtectionMaximumAmplification(
            to, std::max(1.0F, float(options.mostAmplified)));
    }

    /// Expat takes lengths as int; whatever it gets at once it reads where it is.
    bool parse() {
        constexpr int64_t most = 1 << 28;
        for (const uint8_t *at = text.begin;;) {
            const int64_t length = std::min(text.end - at, most);
            const bool isLast = at + length == text.end;
            if (XML_Parse(parser.get(), reinterpret_cast<const char *>(at), int(length), isLast) !=
                XML_STATUS_OK)
                return false;
            if (isLast) return true;
            at += length;
        }
    }

    void stop(XML_Error code) {
        stopped = code;
        XML_StopParser(parser.get(), XML_FALSE);
    }

    // ---------------------------------------------------------------- the prolog

    void declaration(const char *optionalVersion, const char *, int standalone) {
        if (optionalVersion)
            if (Ref version = string(optionalVersion); xmlValueVersionNumOk(version))
                xmlDocumentSetVersion(document.edit(), version);
        xmlDocumentSetStandalone(document.edit(), standalone == 1);
    }

    void startDoctype(const char *, const char *, const char *, int) {
        inDoctype = hasDoctype = true;
    }
    void endDoctype() { inDoctype = false; }

    /// References among entities make Expat recurse, as deep as there are entities that refer to
    /// others at most.
    void entityDeclaration(const char *name, int isParameter, const char *optionalValue, int length,
                           const char *, const char *, const char *, const char *) {
        if (!isParameter) entities.try_emplace(name);
        if (!optionalValue) return;
        const std::string_view value(optionalValue, size_t(length));
        const bool isNested = value.find('%') != value.npos ||
                              refersToEntity(value, [](std::string_view) { return true; });
        if (isNested && ++nested > options.mostNested) stop(XML_ERROR_AMPLIFICATION_LIMIT_BREACH);
    }

    // ---------------------------------------------------------------- elements

    void startElement(const char *name, const char **attributes) {
        endText();
        const int64_t tagPlace = place();
        Ref element(xmlElementCreate(nameString(name)));
        setLocation<xmlElementSetLocation>(element, tagPlace);
        if (*attributes)
            xmlElementSetAttributes(element.edit(), attributeList(attributes, tagPlace));
        open.push_back(std::move(element));
    }

    /// Behind the attributes that the tag has come those that are defaulted. A tag in the text of
    /// an entity is out of sight: the place is that of the reference.
    Ref<XML_ATTRIBUTES> attributeList(const char **attributes, int64_t tagPlace) {
        const int specified = XML_GetSpecifiedAttributeCount(parser.get());
        const uint8_t *begin = text.begin + tagPlace;
        std::optional<TagReader> tag;
        if (*begin == '<' && input.isUtf8 && (locator || hasDoctype))
            tag.emplace(Piece{begin, text.end});
        Ref vector(voVectorCreate());
        for (int i = 0; attributes[i]; i += 2) {
            std::optional<TagReader::Attribute> inTag;
            if (i >= specified)
                countDefault(attributes[i], attributes[i + 1]);
            else if (tag)
                inTag = tag->next();
            Ref attribute(xmlAttributeCreate(nameString(attributes[i])));
            xmlAttributeSetTextValue(attribute.edit(), value(attributes[i + 1], inTag));
            setLocation<xmlAttributeSetLocation>(attribute,
                                                 inTag ? inTag->name - text.begin : tagPlace);
            voVectorAppendObj(vector.edit(), xmlAttributeObj(attribute));
        }
        Ref list(xmlAttributesCreate());
        xmlAttributesSetVector(list.edit(), vector);
        return list;
    }

    /// Expat leaves references to entities that are not defined out of attribute values.
    Ref<voString> value(const char *reported, const std::optional<TagReader::Attribute> &inTag) {
        escaped.clear();
        if (inTag && refersToEntity(inTag->value, [&](std::string_view name) {
                return entities.find(name) == entities.end();
            })) {
            appendKeepingReferences(escaped, inTag->value);
            if (Ref kept = string(escaped); xmlValueTextOk(kept)) return kept;
            escaped.clear();
        }
        escape(escaped, reported, Within::quotes);
        return string(escaped);
    }

    /// Expat's limits are blind to what attribute defaults make of a document.
    void countDefault(std::string_view name, std::string_view value) {
        defaulted += int64_t(name.size() + value.size() + sizeof " =''" - 1);
        if (defaulted > options.mostExpanded && defaulted / options.mostAmplified > text.size())
            stop(XML_ERROR_AMPLIFICATION_LIMIT_BREACH);
    }

    void endElement(const char *) {
        endText();
        Ref element = std::move(open.back());
        open.pop_back();
        append(xmlItemCreateElement(element));
    }

    // ---------------------------------------------------------------- texts

    void characterData(const char *chars, int length) {
        startText();
        const std::string_view utf8(chars, size_t(length));
        if (inCdata)
            pending += utf8;
        else
            escape(pending, utf8, Within::content);
    }

    /// What no other handler takes: in an element only references that Expat does not resolve.
    void other(const char *chars, int length) {
        if (inDoctype || open.empty() || *chars != '&') return;
        startText();
        pending.append(chars, size_t(length));
    }

    void startText() {
        if (pending.empty() && !inCdata) pendingPlace = place();
    }

    void endText() {
        if (pending.empty()) return;
        Ref made(xmlTextCreateValue(string(pending)));
        pending.clear();
        setLocation<xmlTextSetLocation>(made, pendingPlace);
        append(xmlItemCreateText(made));
    }

    void startCdata() {
        endText();
        startText();
        inCdata = true;
    }

    /// A CR, which only the text of an entity can bring into a section, survives in a text alone.
    void endCdata() {
        inCdata = false;
        if (pending.find('\r') != pending.npos) {
            Bytes plain;
            plain.swap(pending);
            escape(pending, plain, Within::content);
            return endText();
        }
        require(pending);
        Ref made(xmlCdataCreate(string(pending)));
        pending.clear();
        setLocation<xmlCdataSetLocation>(made, pendingPlace);
        append(xmlItemCreateCdata(made));
    }

    void escape(Bytes &out, std::string_view utf8, Within within) {
        if (!appendEscaped(out, utf8, within, repertoire)) fits = false;
    }

    // ---------------------------------------------------------------- other nodes

    void processingInstruction(const char *target, const char *data) {
        endText();
        if (inDoctype) return;
        Bytes value(target);
        if (*data) value.append(" ").append(data);
        require(value);
        Ref whole = string(value);
        if (!xmlValueProcessingInstructionValueOk(whole)) return stop(XML_ERROR_INVALID_TOKEN);
        Ref made(xmlProcessingInstructionCreate(whole));
        setLocation<xmlProcessingInstructionSetLocation>(made, place());
        append(xmlItemCreateProcessingInstruction(made));
    }

    void comment(const char *chars) {
        endText();
        if (inDoctype) return;
        Bytes value(*chars == '-' || !*chars ? " " : "");
        value += chars;
        require(value);
        Ref made(xmlCommentCreate(string(value)));
        setLocation<xmlCommentSetLocation>(made, place());
        append(xmlItemCreateComment(made));
    }

    // ---------------------------------------------------------------- parts

    void append(XML_ITEM *adopted) {
        Ref item(adopted);
        if (open.empty())
            xmlItemsAppendItem(items.edit(), item);
        else
            xmlElementAppendItem(open.back().edit(), item);
    }

    /// Not a new reference. In some character sets Expat takes a few letters for name characters
    /// that are none; then the document is refused, and another name stands in for as long.
    voString *nameString(std::string_view name) {
        const auto found = names.find(name);
        if (found != names.end()) return found->second;
        require(name);
        Ref made = string(name);
        if (!xmlValueNameOk(made)) {
            stop(XML_ERROR_INVALID_TOKEN);
            made = string("_");
        }
        return names.try_emplace(Bytes(name), std::move(made)).first->second;
    }

    /// Notes whether the character set has what cannot be written as a reference.
    void require(std::string_view utf8) {
        if (!repertoire.hasAll(utf8)) fits = false;
    }

    /// Where what Expat reports begins in the text.
    int64_t place() const { return XML_GetCurrentByteIndex(parser.get()); }

    template <auto set, class T> void setLocation(Ref<T> &node, int64_t begin) {
        if (locator) set(node.edit(), Ref(locator->locate(text.begin + begin)));
    }

    const ImportInput &input;
    const Piece text;
    const XML_IMPORT_OPTIONS options;
    std::optional<Locator> locator;
    Repertoire repertoire;
    Parser parser;
    std::optional<XML_Error> stopped;

    Ref<XML_DOCUMENT> document;
    Ref<XML_ITEMS> items;
    vo::Vec<Ref<XML_ELEMENT>> open;
    ByName<Ref<voString>> names;
    bool fits = true; ///< Whether the character set has all that must stand as it is.

    Bytes pending; ///< The text before the place, escaped; within a section as it is.
    int64_t pendingPlace = 0;
    bool inCdata = false;
    Bytes escaped; ///< For one value at a time.

    bool inDoctype = false;
    bool hasDoctype = false;
    ByName<bool> entities; ///< Those that can be referred to.
    int64_t nested = 0;    ///< Entities that refer to others.
    int64_t defaulted = 0; ///< Bytes that defaulted attributes take.
};

} // namespace

ImportResult buildImported(const ImportInput &input, const XML_IMPORT_OPTIONS &options,
                           voParserLocation *optionalLocation) {
    return Builder(input, options, optionalLocation).run();
}

} // namespace xml
