#include "xml/xml_document_decode.h"

#include "source/vo/vo_allocator.hpp"
#include "source/xml/base/xml_builder.hpp"
#include "source/xml/base/xml_cdata.hpp"
#include "source/xml/base/xml_comment.hpp"
#include "source/xml/base/xml_document.hpp"
#include "source/xml/base/xml_input.hpp"
#include "source/xml/base/xml_locator.hpp"
#include "source/xml/base/xml_processing_instruction.hpp"
#include "source/xml/base/xml_skip.hpp"
#include "xml/xml_value.h"

#include <algorithm>
#include <optional>
#include <string_view>

using vo::Ref;
using xml::Name;
using xml::Piece;

namespace {

using Code = XML_DECODE_ERROR_CODE;
using Token = std::string_view;

/// Reads one UTF-8 text into a document. A production returns false after the first failure, which
/// `failure` then holds; otherwise it has moved `at` past what it read.
class Decoder {
  public:
    Decoder(Piece text, voCharset textCharset, std::optional<xml::Locator> optionalLocator,
            voParserLocation *optionalStart)
        : at(text.begin), end(text.end), charset(textCharset), build(text),
          locator(optionalLocator) {
        if (optionalStart) xmlDocumentSetLocation(document.edit(), optionalStart);
        // Small documents are done with this.
        open.reserve(16);
        pending.reserve(64);
        attrs.reserve(16);
    }

    ~Decoder() {
        for (XML_ITEM *item : pending)
            vo::release(item);
        dropAttributes();
    }

    XML_DECODE_RESULT *run() {
        if (!declaration() || !content())
            return xmlDecodeResultCreateError(Ref(xmlDecodeErrorCreate(failure.code, failure.at)));
        xmlDocumentSetItems(document.edit(), Ref(build.items(pending)));
        pending.clear();
        return xmlDecodeResultCreate(document);
    }

  private:
    // XMLDecl ::= '<?xml' attributes S? '?>'
    [[nodiscard]] bool declaration() {
        skipS();
        if (!skip("<?xml")) return fail(XML_DECODE_ERROR_CODE_XML_DECLARATION, at);
        const uint8_t *settings = at;
        if (xml::skipS(at, end) > at) {
            if (!attributes()) return fail(XML_DECODE_ERROR_CODE_XML_DECLARATION, settings);
            bool accepted = version() && standalone();
            dropAttributes();
            if (!accepted) return fail(XML_DECODE_ERROR_CODE_XML_DECLARATION, at);
            xmlDocumentSetCharset(document.edit(), charset);
        }
        return skip("?>") || fail(XML_DECODE_ERROR_CODE_XML_DECLARATION, at);
    }

    [[nodiscard]] bool version() {
        voString *value = attributeValue("version");
        if (!value || !xmlValueVersionNumOk(value)) return false;
        xmlDocumentSetVersion(document.edit(), value);
        return true;
    }

    [[nodiscard]] bool standalone() {
        voString *value = attributeValue("standalone");
        if (!value) return true;
        const bool yes = equals(value, "yes");
        xmlDocumentSetStandalone(document.edit(), yes);
        return yes || equals(value, "no");
    }

    // content ::= CharData? ( markup CharData? )*
    [[nodiscard]] bool content() {
        while (at < end)
            if (!(*at == '<' ? markup() : characterData())) return false;
        if (open.empty()) return true;
        failure = {XML_DECODE_ERROR_CODE_TAG_NOT_CLOSED,
                   Ref(xmlElementLocation(open.back().element))};
        return false;
    }

    // CharData ::= ( [^<&] | EntityRef )+
    [[nodiscard]] bool characterData() {
        Piece value{at, xml::skipCharData(at, end)};
        if (value.end < end && *value.end == '&')
            return fail(XML_DECODE_ERROR_CODE_TEXT, value.end);
        auto location = locate(at);
        at = value.end;
        pending.push_back(build.text(value, location.take()));
        return true;
    }

    [[nodiscard]] bool markup() {
        markupLocation = locate(at++);
        if (skip("/")) return endTag();
        if (skip("?")) return processingInstruction();
        if (skip("!--")) return comment();
        if (skip("![CDATA[")) return cdata();
        if (skip("!DOCTYPE")) return fail(XML_DECODE_ERROR_CODE_DOCTYPE);
        return startTag();
    }

    // STag ::= '<' S? Name attributes S? '>'; EmptyElemTag has '/' S? before the '>'
    [[nodiscard]] bool startTag() {
        skipS();
        Name *name = readName();
        if (!name) return fail(XML_DECODE_ERROR_CODE_TAG);
        if (!attributes()) return fail(XML_DECODE_ERROR_CODE_ATTRIBUTE_LIST);
        const bool empty = skip("/");
        if (empty) skipS();
        if (!skip(">")) return fail(XML_DECODE_ERROR_CODE_TAG);
        openElement(name);
        if (empty) closeElement();
        return true;
    }

    void openElement(Name *name) {
        XML_ITEM *item = build.element(name, attrs, markupLocation.take());
        attrs.clear();
        pending.push_back(item);
        open.push_back({reinterpret_cast<XML_ELEMENT *>(item->value), name, pending.size()});
    }

    // ETag ::= '</' S? Name S? '>'
    [[nodiscard]] bool endTag() {
        skipS();
        const uint8_t *begin = at;
        const bool matches = !open.empty() && startsWith(open.back().name);
        at = matches ? at + open.back().name->bytes.size() : xml::skipName(at, end);
        Piece tag{begin, at};
        skipS();
        if (tag.begin == tag.end || !skip(">")) return fail(XML_DECODE_ERROR_CODE_TAG);
        if (!matches && (open.empty() || open.back().name->bytes != tag.bytes()))
            return fail(XML_DECODE_ERROR_CODE_TAG_MISMATCH);
        closeElement();
        return true;
    }

    void closeElement() {
        auto [element, name, firstChild] = open.back();
        open.pop_back();
        build.setChildren(element, std::span(pending).subspan(firstChild));
        pending.resize(firstChild);
    }

    // PI ::= '<?' Name ( no '?>' ) '?>'
    [[nodiscard]] bool processingInstruction() {
        auto value = until("?>");
        if (!value || xml::skipName(value->begin, value->end) == value->begin)
            return fail(XML_DECODE_ERROR_CODE_PROCESSING_INSTRUCTION);
        return append<XML_PROCESSING_INSTRUCTION>(XML_ITEM_TYPE_PROCESSING_INSTRUCTION,
                                                  xmlProcessingInstructionSort(), *value);
    }

    // Comment ::= '<!--' ( not empty, no '-' at either end, no '--' ) '-->'
    [[nodiscard]] bool comment() {
        auto value = until("-->");
        if (!value || value->bytes().empty() || value->bytes().front() == '-' ||
            value->bytes().back() == '-' || value->bytes().find("--") != Token::npos)
            return fail(XML_DECODE_ERROR_CODE_COMMENT);
        return append<XML_COMMENT>(XML_ITEM_TYPE_COMMENT, xmlCommentSort(), *value);
    }

    // CDSect ::= '<![CDATA[' ( no ']]>' ) ']]>'
    [[nodiscard]] bool cdata() {
        auto value = until("]]>");
        if (!value) return fail(XML_DECODE_ERROR_CODE_CDATA);
        return append<XML_CDATA>(XML_ITEM_TYPE_CDATA, xmlCdataSort(), *value);
    }

    template <class Node> bool append(XML_ITEM_TYPE type, voSort *sort, Piece value) {
        pending.push_back(build.characterData<Node>(type, sort, value, markupLocation.take()));
        return true;
    }

    // attributes ::= ( S? Attribute )* S?, all names different
    [[nodiscard]] bool attributes() {
        ++attributeLists;
        for (;;) {
            skipS();
            const uint8_t *begin = at;
            Name *name = readName();
            if (!name) return true;
            if (!attribute(name, begin)) return false;
        }
    }

    // Attribute ::= Name Eq AttValue
    [[nodiscard]] bool attribute(Name *name, const uint8_t *begin) {
        const uint8_t *value = xml::skipEq(at, end);
        const uint8_t *valueEnd = xml::skipAttValue(value, end);
        if (value == at || valueEnd == value) return false;
        if (std::exchange(name->seenIn, attributeLists) == attributeLists) return false;
        auto location = locate(begin);
        at = valueEnd;
        attrs.push_back(build.attribute(name, {value + 1, valueEnd - 1}, location.take()));
        return true;
    }

    /// The escaped value of the attribute with that name in the list just read, or null.
    voString *attributeValue(Token name) {
        for (XML_ATTRIBUTE *attr : attrs)
            if (equals(attr->name, name)) return attr->text->value;
        return nullptr;
    }

    static bool equals(voString *string, Token token) {
        return std::equal(string->items(), string->items() + string->length, token.begin(),
                          token.end());
    }

    void dropAttributes() {
        for (XML_ATTRIBUTE *attr : attrs)
            vo::release(attr);
        attrs.clear();
    }

    // ---------------------------------------------------------------- text and failures

    void skipS() { at = xml::skipS(at, end); }

    /// The name that comes next, which is stepped over; null when none does.
    Name *readName() {
        Name *name = lastName ? lastName->follower : nullptr;
        if (name && startsWith(name)) {
            at += name->bytes.size();
        } else {
            Piece piece{at, xml::skipName(at, end)};
            if (piece.begin == piece.end) return nullptr;
            at = piece.end;
            name = build.name(piece);
            if (lastName) lastName->follower = name;
        }
        return lastName = name;
    }

    /// Whether exactly this name comes next. A character above 127 behind it may go on with it or
    /// not; then this is false.
    bool startsWith(const Name *name) const {
        const size_t length = name->bytes.size();
        if (size_t(end - at) < length) return false;
        auto *bytes = reinterpret_cast<const uint8_t *>(name->bytes.data());
        if (!xml::sameBytes(at, bytes, length, end)) return false;
        const uint8_t *next = at + length;
        return next == end || (*next < 128 && !xml::isName(*next));
    }

    bool skip(Token token) {
        if (!Piece{at, end}.bytes().starts_with(token)) return false;
        at += token.size();
        return true;
    }

    /// What stands before the first `token`, which is stepped over too; nothing moves without one.
    std::optional<Piece> until(Token token) {
        size_t length = Piece{at, end}.bytes().find(token);
        if (length == Token::npos) return std::nullopt;
        Piece before{at, at + length};
        at = before.end + token.size();
        return before;
    }

    /// The location of a place in the text, or null when nobody asked for locations.
    Ref<voParserLocation> locate(const uint8_t *place) {
        return locator ? locator->locate(place) : Ref<voParserLocation>();
    }

    /// Records a failure of the markup that is being read.
    bool fail(Code code) {
        failure = {code, std::move(markupLocation)};
        return false;
    }

    bool fail(Code code, const uint8_t *place) {
        failure = {code, locate(place)};
        return false;
    }

    struct Failure {
        Code code;
        Ref<voParserLocation> at;
    };

    /// An element whose end tag has not come.
    struct Open {
        XML_ELEMENT *element;
        Name *name;
        size_t firstChild; ///< Its place in `pending`.
    };

    const uint8_t *at;
    const uint8_t *end;
    voCharset charset;
    xml::Builder build;
    std::optional<xml::Locator> locator;
    Ref<XML_DOCUMENT> document{xmlDocumentCreate()};
    Ref<voParserLocation> markupLocation; ///< Of the "<" of the markup that is being read.
    vo::Vec<Open> open;                   ///< Innermost last.
    vo::Vec<XML_ITEM *> pending;          ///< Children of the open elements, in document order.
    vo::Vec<XML_ATTRIBUTE *> attrs;       ///< Of the tag that is being read.
    uint64_t attributeLists = 0;
    Name *lastName = nullptr;
    Failure failure{};
};

} // namespace

XML_DECODE_RESULT *xmlDocumentDecode(voBuffer *xml, XML_OPTIONS *opt,
                                     voParserLocation *optionalLocation) {
    VO_ASSERT(xml);
    VO_ASSERT(opt);
    auto input = xml::readInput(xml, xmlOptionsDecodeCharsetFlags(opt));
    if (!input.utf8)
        return xmlDecodeResultCreateError(
            Ref(xmlDecodeErrorCreate(XML_DECODE_ERROR_CODE_CHARSET, optionalLocation)));
    const uint8_t *begin = voBufferBacking(input.utf8);
    const uint8_t *end = begin + voBufferLength(input.utf8);
    std::optional<xml::Locator> locator;
    if (xmlOptionsFlags(opt) & XML_FLAG_DECODE_LOCATION)
        locator.emplace(begin, end, xmlOptionsDecodeNlfFlags(opt), optionalLocation);
    return Decoder({begin, end}, input.charset, locator, optionalLocation).run();
}
