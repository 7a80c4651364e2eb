#include "source/xml/outline/xml_outline_builder.hpp"

#include "source/xml/outline/xml_outline_fast.hpp"

#include <optional>

namespace xml {
namespace {

using Code = XML_DECODE_ERROR_CODE;

/// Reads a text by its grammar, one method a production. A production returns false after the first
/// failure, which `failure` then holds; otherwise it has moved `at` past what it read.
template <class Word> class Builder : private ReadingState<Word> {
    using State = ReadingState<Word>;
    using State::at, State::depth, State::end, State::lists, State::names, State::open,
        State::patches, State::records, State::text;

  public:
    Builder(voBuffer *buffer, Piece decoded, voCharset textCharset) : State(decoded) {
        source.buffer = vo::Ref(vo::retained(buffer));
        source.text = decoded;
        source.charset = VO_CHARSET_UTF_8;
        charset = textCharset;
    }

    OutlineResult run(Reading reading) {
        if (!declaration() || !content(reading)) return {{}, failure.code, failure.place};
        vo::Ref outline(records.finish(names.size()));
        outline->source = std::move(source);
        names.copyTo(outline->names);
        outline->patches.assign(patches.data(), patches.data() + patches.size());
        return {std::move(outline), 0, nullptr};
    }

  private:
    // XMLDecl ::= '<?xml' attributes S? '?>'
    [[nodiscard]] bool declaration() {
        skipS();
        if (!skip("<?xml")) return fail(XML_DECODE_ERROR_CODE_XML_DECLARATION, at);
        const uint8_t *settings = at;
        if (xml::skipS(at, end) > at) {
            std::optional<Piece> version, standalone;
            ++lists;
            if (!attributes([&](uint32_t name, const uint8_t *, Piece value) {
                    if (names[name].bytes.bytes() == "version") version = value;
                    if (names[name].bytes.bytes() == "standalone") standalone = value;
                }))
                return fail(XML_DECODE_ERROR_CODE_XML_DECLARATION, settings);
            if (!accept(version, standalone))
                return fail(XML_DECODE_ERROR_CODE_XML_DECLARATION, at);
        }
        if (!skip("?>")) return fail(XML_DECODE_ERROR_CODE_XML_DECLARATION, at);
        source.content = uint64_t(at - text);
        return true;
    }

    bool accept(std::optional<Piece> version, std::optional<Piece> standalone) {
        if (!version || version->size() == 0 ||
            skipVersionNum(version->begin, version->end) != version->end)
            return false;
        source.version = *version;
        source.charset = charset;
        source.standalone = standalone && standalone->bytes() == "yes";
        return !standalone || source.standalone || standalone->bytes() == "no";
    }

    // content ::= CharData? ( markup CharData? )*
    [[nodiscard]] bool content(Reading reading) {
        while (at < end) {
            if (reading == Reading::fast) readOrdinary(static_cast<State &>(*this));
            if (at < end && !(*at == '<' ? markup() : characterData())) return false;
        }
        if (depth == 0) return true;
        return fail(XML_DECODE_ERROR_CODE_TAG_NOT_CLOSED,
                    text + records[open[depth - 1].record].begin);
    }

    // CharData ::= ( [^<&] | EntityRef )+
    [[nodiscard]] bool characterData() {
        const Piece value{at, skipCharData(at, end)};
        if (value.end < end && *value.end == '&')
            return fail(XML_DECODE_ERROR_CODE_TEXT, value.end);
        at = value.end;
        return add(XML_ITEM_TYPE_TEXT, value);
    }

    [[nodiscard]] bool markup() {
        const uint8_t *begin = at++;
        if (skip("/")) return endTag(begin);
        if (skip("?")) return processingInstruction(begin);
        if (skip("!--")) return comment(begin);
        if (skip("![CDATA[")) return cdata(begin);
        if (skip("!DOCTYPE")) return fail(XML_DECODE_ERROR_CODE_DOCTYPE, begin);
        return startTag(begin);
    }

    // STag ::= '<' S? Name attributes S? '>'; EmptyElemTag has '/' S? before the '>'
    [[nodiscard]] bool startTag(const uint8_t *begin) {
        skipS();
        const uint32_t name = readName();
        if (!name) return fail(XML_DECODE_ERROR_CODE_TAG, begin);
        const uint64_t element = records.number();
        State::addRecord(XML_ITEM_TYPE_ELEMENT, begin, begin, name);
        ++lists;
        const bool listed = attributes([&](uint32_t attribute, const uint8_t *place, Piece value) {
            State::addRecord(attributeKind, place, value.end, attribute);
        });
        if (!listed) return fail(XML_DECODE_ERROR_CODE_ATTRIBUTE_LIST, begin);
        const bool empty = skip("/");
        if (empty) skipS();
        if (!skip(">")) return fail(XML_DECODE_ERROR_CODE_TAG, begin);
        State::addPatch(begin); // The encoder then reads the tag again, which few tags need.
        State::makeRoomToOpen();
        State::openElement(element, name);
        if (empty) State::closeElement();
        return true;
    }

    // ETag ::= '</' S? Name S? '>'
    [[nodiscard]] bool endTag(const uint8_t *begin) {
        skipS();
        const Piece tag{at, skipName(at, end)};
        at = tag.end;
        skipS();
        if (tag.begin == tag.end || !skip(">")) return fail(XML_DECODE_ERROR_CODE_TAG, begin);
        if (depth == 0 || names[open[depth - 1].name].bytes.bytes() != tag.bytes())
            return fail(XML_DECODE_ERROR_CODE_TAG_MISMATCH, begin);
        if (begin == State::contentBegin) State::patchEmptyElement();
        if (at - begin != tag.size() + 3) State::addPatch(begin);
        State::closeElement();
        return true;
    }

    // PI ::= '<?' Name ( no '?>' ) '?>'
    [[nodiscard]] bool processingInstruction(const uint8_t *begin) {
        const auto value = until("?>");
        if (!value || skipName(value->begin, value->end) == value->begin)
            return fail(XML_DECODE_ERROR_CODE_PROCESSING_INSTRUCTION, begin);
        return add(XML_ITEM_TYPE_PROCESSING_INSTRUCTION, *value);
    }

    // Comment ::= '<!--' ( not empty, no '-' at either end, no '--' ) '-->'
    [[nodiscard]] bool comment(const uint8_t *begin) {
        const auto value = until("-->");
        if (!value || value->bytes().empty() || value->bytes().front() == '-' ||
            value->bytes().back() == '-' || value->bytes().find("--") != std::string_view::npos)
            return fail(XML_DECODE_ERROR_CODE_COMMENT, begin);
        return add(XML_ITEM_TYPE_COMMENT, *value);
    }

    // CDSect ::= '<![CDATA[' ( no ']]>' ) ']]>'
    [[nodiscard]] bool cdata(const uint8_t *begin) {
        const auto value = until("]]>");
        return value ? add(XML_ITEM_TYPE_CDATA, *value) : fail(XML_DECODE_ERROR_CODE_CDATA, begin);
    }

    bool add(Kind kind, Piece value) {
        State::addRecord(kind, value.begin, value.end, 0);
        return true;
    }

    // attributes ::= ( S? Attribute )* S?, all names different
    // Attribute ::= Name Eq AttValue
    template <class Take> [[nodiscard]] bool attributes(Take take) {
        for (;;) {
            skipS();
            const uint8_t *begin = at;
            const uint32_t name = readName();
            if (!name) return true;
            const uint8_t *value = skipEq(at, end);
            const uint8_t *valueEnd = skipAttValue(value, end);
            if (value == at || valueEnd == value) return false;
            if (std::exchange(names[name].seenIn, lists) == lists) return false;
            take(name, begin, Piece{value + 1, valueEnd - 1});
            at = valueEnd;
        }
    }

    // ---------------------------------------------------------------- text and failures

    void skipS() { at = xml::skipS(at, end); }

    /// Steps over the name that comes next and gives its number; 0 when there is no name.
    uint32_t readName() {
        const Piece name{at, skipName(at, end)};
        if (name.begin == name.end) return 0;
        at = name.end;
        return names.intern(name);
    }

    bool skip(std::string_view token) {
        if (!Piece{at, end}.bytes().starts_with(token)) return false;
        at += token.size();
        return true;
    }

    /// What stands before the first `token`. Steps over both; does not move when there is no token.
    std::optional<Piece> until(std::string_view token) {
        const size_t length = Piece{at, end}.bytes().find(token);
        if (length == std::string_view::npos) return std::nullopt;
        const Piece before{at, at + length};
        at = before.end + token.size();
        return before;
    }

    bool fail(Code code, const uint8_t *place) {
        failure = {code, place};
        return false;
    }

    struct {
        Code code;
        const uint8_t *place;
    } failure{};
    DecodedText source;
    voCharset charset; ///< That of the document, unless its declaration is empty.
};

} // namespace

OutlineResult buildOutline(voBuffer *buffer, Piece text, voCharset charset, Reading reading,
                           uint64_t mostCompact) {
    if (uint64_t(text.size()) <= mostCompact)
        return Builder<uint32_t>(buffer, text, charset).run(reading);
    return Builder<uint64_t>(buffer, text, charset).run(reading);
}

} // namespace xml
