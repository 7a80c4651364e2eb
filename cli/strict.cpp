#include "strict.hpp"

#include "charset.hpp"
#include "errors.hpp"
#include "markup.hpp"

#include <algorithm>
#include <memory>
#include <new>
#include <unordered_map>

#include <expat.h>

namespace tool {
namespace {

// ---------------------------------------------------------------- the verdict

struct Verdict {
    XML_Error code = XML_ERROR_NONE;
    size_t at = 0; ///< The byte that the error is about.
    bool hasDoctype = false;
};

struct Judge {
    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser;
    bool hasDoctype = false;

    static void XMLCALL stopAtDoctype(void *self, const char *, const char *, const char *, int) {
        auto *judge = static_cast<Judge *>(self);
        judge->hasDoctype = true;
        XML_StopParser(judge->parser.get(), XML_FALSE);
    }
};

/// Expat takes lengths as int.
bool parse(XML_Parser parser, std::string_view bytes) {
    constexpr size_t most = 1 << 28;
    for (;;) {
        const std::string_view part = bytes.substr(0, most);
        bytes.remove_prefix(part.size());
        const int length = static_cast<int>(part.size());
        if (XML_Parse(parser, part.data(), length, bytes.empty()) != XML_STATUS_OK) return false;
        if (bytes.empty()) return true;
    }
}

/// What Expat says of a document, up to a document type declaration. Null as the encoding stands
/// for what the document names.
Verdict judge(std::string_view bytes, const char *encoding) {
    Judge judge{{XML_ParserCreate(encoding), XML_ParserFree}};
    XML_Parser parser = judge.parser.get();
    if (!parser) throw std::bad_alloc();
    XML_SetUserData(parser, &judge);
    XML_SetStartDoctypeDeclHandler(parser, Judge::stopAtDoctype);
    if (parse(parser, bytes)) return {};
    const XML_Error code = XML_GetErrorCode(parser);
    if (code == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
    const auto at = std::max<XML_Index>(XML_GetErrorByteIndex(parser), 0);
    return {code, std::min(static_cast<size_t>(at), bytes.size()), judge.hasDoctype};
}

std::string_view bytesOf(voBuffer *buffer) {
    return {reinterpret_cast<const char *>(voBufferBacking(buffer)),
            static_cast<size_t>(voBufferLength(buffer))};
}

bool accepts(std::string_view utf8) { return judge(utf8, "UTF-8").code == XML_ERROR_NONE; }

// ---------------------------------------------------------------- the words

/// What is wrong at a place of a text.
struct Finding {
    size_t at;
    std::string text;
    std::string hint;
};

/// An error of Expat with all that the words for it depend on.
struct Scene {
    std::string_view text;
    size_t at;
    XML_Error code;
    Surroundings around = surroundingsOf(text, at);

    bool isBesideRoot() const { return around.open.empty(); }
    bool isInText() const { return around.markup == std::string_view::npos; }
    std::string_view rest(size_t from) const { return text.substr(std::min(from, text.size())); }
};

Chars::value_type charAt(std::string_view utf8) {
    Ref string = makeString(utf8.substr(0, 1));
    for (size_t length = 2; chars(string).empty() && length <= 4; ++length)
        string = makeString(utf8.substr(0, length));
    return chars(string).empty() ? 0xFFFD : chars(string).front();
}

bool isXmlChar(uint32_t ch) {
    return ch >= 0x20 ? ch != 0xFFFE && ch != 0xFFFF : ch == '\t' || ch == '\n' || ch == '\r';
}

bool isCalledXml(std::string_view markup) {
    if (!markup.starts_with("<?")) return false;
    const std::string_view target = markup.substr(2, 3);
    const char next = markup.size() > 5 ? markup[5] : '?';
    return std::ranges::equal(target, std::string_view("xml"), {},
                              [](char ch) {
                                  return ch == 'X' || ch == 'M' || ch == 'L'
                                             ? static_cast<char>(ch - 'A' + 'a')
                                             : ch;
                              }) &&
           (isXmlSpace(next) || next == '?');
}

Finding laterDeclaration(const Scene &scene, size_t at) {
    if (scene.rest(at).starts_with("<?xml"))
        return {at, "XML declaration behind the beginning of the document",
                "it stands at the very beginning or nowhere, and no processing instruction is "
                "called xml"};
    return {at, "processing instruction called xml in capital letters",
            "XML keeps such names for itself; use another one"};
}

Finding besideRoot(const Scene &scene, size_t at) {
    const std::string_view rest = scene.rest(at);
    if (rest.starts_with("<![CDATA["))
        return {at, "CDATA section beside the root element", "put it into the root element"};
    if (isCalledXml(rest)) return laterDeclaration(scene, at);
    if (rest.starts_with("<"))
        return {at, "several root elements",
                "a document has one root element; put them all into one"};
    return {at, "text beside the root element",
            "there can only be white space, comments and processing instructions"};
}

Finding badCharacter(size_t at, uint32_t ch) {
    return {at, "character that XML 1.0 does not have",
            "remove U+" + hex(ch, 4) + "; it cannot be written as a reference either"};
}

bool isNameLike(uint32_t ch) {
    return ch >= 0x80 || ch == '_' || ch == ':' || (ch >= 'a' && ch <= 'z') ||
           (ch >= 'A' && ch <= 'Z');
}

Finding badMarkup(const Scene &scene, uint32_t ch) {
    const size_t tag = scene.around.markup, at = scene.at;
    const char before = scene.text[at - 1];
    if (isCalledXml(scene.rest(tag))) return laterDeclaration(scene, tag);
    if (isXmlSpace(scene.text[std::min(at, scene.text.size() - 1)])) {
        if (at == tag + 1)
            return {at, "white space behind \"<\"", "remove it, or write &lt; for the \"<\""};
        if (before == '/') return {at, "white space behind \"/\"", "remove it"};
    }
    if ((before == '\'' || before == '"') && isNameLike(ch)) {
        const std::string_view name = scene.rest(at);
        return {at, "no white space between attributes",
                "put a space in front of '" +
                    std::string(name.substr(0, name.find_first_of(" \t\r\n=/>"))) + "'"};
    }
    return {at, "character that cannot stand here", "XML 1.0 allows no \"" + shown(ch) + "\" here"};
}

Finding badToken(const Scene &scene) {
    const uint32_t ch = scene.at < scene.text.size() ? charAt(scene.rest(scene.at)) : ' ';
    if (!isXmlChar(ch)) return badCharacter(scene.at, ch);
    if (!scene.isInText()) return badMarkup(scene, ch);
    if (scene.isBesideRoot())
        return besideRoot(scene, skipXmlSpace(scene.text, scene.around.textBegin));
    constexpr std::string_view sectionEnd = "]]>";
    if (scene.at >= 2 && scene.rest(scene.at - 2).starts_with(sectionEnd))
        return {scene.at - 2, "\"]]>\" in a text", "write ]]&gt; for \"]]>\""};
    return {scene.at, "character that cannot stand here",
            "XML 1.0 allows no \"" + shown(ch) + "\" here"};
}

/// Expat blames the tag for a reference in one of its attributes.
Finding undefinedEntity(const Scene &scene) {
    size_t at = scene.at;
    if (scene.rest(at).starts_with('<'))
        for (at = scene.text.find('&', at); at != scene.text.npos;
             at = scene.text.find('&', at + 1))
            if (!accepts("<a>" + std::string(referenceAt(scene.text, at)) + "</a>")) break;
    at = std::min(at, scene.text.size());
    return {at, "undefined entity",
            "without a DOCTYPE only &lt; &gt; &amp; &quot; and &apos; are defined; write the "
            "character itself"};
}

Finding describe(const Scene &scene) {
    switch (scene.code) {
    case XML_ERROR_NO_ELEMENTS:
        return {scene.at, "no root element",
                scene.text.empty() ? "the input is empty"
                                   : "a document has exactly one root element"};
    case XML_ERROR_JUNK_AFTER_DOC_ELEMENT:
    case XML_ERROR_SYNTAX:
        return besideRoot(scene, scene.at);
    case XML_ERROR_INVALID_TOKEN:
        return badToken(scene);
    case XML_ERROR_UNDEFINED_ENTITY:
        return undefinedEntity(scene);
    case XML_ERROR_BAD_CHAR_REF:
        return {scene.at, "reference to a character that XML 1.0 does not have", "remove it"};
    case XML_ERROR_MISPLACED_XML_PI:
        return laterDeclaration(scene, scene.at);
    case XML_ERROR_XML_DECL:
        return {scene.at, "XML declaration malformed",
                "it has a version, an encoding and standalone, in this order, with white space in "
                "front of each"};
    default:
        return {scene.at, XML_ErrorString(scene.code), {}};
    }
}

/// Where the name of the encoding stands in a declaration, if there is one.
std::string_view declaredEncoding(std::string_view text) {
    const std::string_view head = text.substr(0, text.find("?>"));
    const size_t name = head.find("encoding");
    if (!head.starts_with("<?xml") || name == head.npos) return {};
    const size_t quote = head.find_first_of("'\"", name);
    if (quote == head.npos) return {};
    return head.substr(quote + 1, head.find(head[quote], quote + 1) - quote - 1);
}

/// The text is right, but others do not get to know it.
Finding badEncoding(std::string_view text, XML_Error code) {
    const std::string_view declared = declaredEncoding(text);
    const size_t at = declared.empty() ? 0 : static_cast<size_t>(declared.data() - text.data());
    if (code == XML_ERROR_INCORRECT_ENCODING)
        return {at, "encoding that the text is not in",
                "name the encoding of the bytes, or leave it out"};
    const voCharset known = charsetNamed(declared), close = closestCharset(declared);
    if (declared.empty() || known >= 0)
        return {at, "encoding that not every XML reader knows",
                "all know UTF-8 and UTF-16; 'voxml convert --to UTF-8' writes the document in one"};
    return {at, "unknown encoding",
            close >= 0 ? "did you mean " + charsetName(close) + "?" : "all readers know UTF-8"};
}

// ---------------------------------------------------------------- all errors

std::optional<Place> placeIn(Chars text, std::string_view utf8, size_t at) {
    return placeAt(text, static_cast<size_t>(std::ranges::count_if(utf8.substr(0, at), [](char ch) {
                       return (static_cast<unsigned char>(ch) & 0xC0) != 0x80;
                   })));
}

/// What Expat finds, up to an error that is no wrong reference.
std::vector<Failure> findByExpat(Chars text, std::string utf8) {
    std::vector<Failure> found;
    while (found.size() <= mostErrors) {
        const Verdict verdict = judge(utf8, "UTF-8");
        if (verdict.code == XML_ERROR_NONE || verdict.hasDoctype) break;
        Finding finding = describe({utf8, verdict.at, verdict.code});
        found.push_back({{}, finding.text, placeIn(text, utf8, finding.at), finding.hint});
        if (finding.at >= utf8.size() || utf8[finding.at] != '&' ||
            (verdict.code != XML_ERROR_UNDEFINED_ENTITY && verdict.code != XML_ERROR_BAD_CHAR_REF))
            break;
        utf8[finding.at] = ' ';
    }
    return found;
}

/// From where on Expat's errors are those that the decoder tells, too.
int64_t firstPlace(const std::vector<Failure> &failures, Chars text) {
    const auto end = static_cast<int64_t>(text.size());
    if (failures.empty() || !failures.front().place) return end + 1;
    const bool isAboutEnd = failures.front().code == "XML_DECODE_ERROR_CODE_TAG_NOT_CLOSED";
    return isAboutEnd ? end : failures.front().place->offset;
}

/// What the decoder need not tell of. There may be many references, but most are alike.
Accepts leavesToExpat() {
    return [known = std::unordered_map<std::string, bool>()](const std::string &document) mutable {
        const auto [entry, isNew] = known.try_emplace(document);
        if (isNew) {
            const XML_Error code = judge(document, "UTF-8").code;
            entry->second = code == XML_ERROR_NONE || code == XML_ERROR_BAD_CHAR_REF;
        }
        return entry->second;
    };
}

Errors findErrors(Chars text, Verdict verdict) {
    Errors errors = errorsBut(leavesToExpat(), text);
    const std::string utf8 = tool::utf8(text);
    std::vector<Failure> found = findByExpat(text, utf8);
    const int64_t first = firstPlace(errors.list, text);
    std::erase_if(found,
                  [first](const Failure &failure) { return failure.place->offset >= first; });
    const bool isAboutEncoding =
        verdict.code == XML_ERROR_UNKNOWN_ENCODING || verdict.code == XML_ERROR_INCORRECT_ENCODING;
    if (isAboutEncoding || (errors.list.empty() && found.empty())) {
        const Finding finding = badEncoding(utf8, verdict.code);
        found.insert(found.begin(),
                     {{}, finding.text, placeIn(text, utf8, finding.at), finding.hint});
    }
    errors.list.insert(errors.list.begin(), found.begin(), found.end());
    return errors;
}

bool hasDeclaration(voBuffer *bytes) {
    std::string head(bytesOf(bytes).substr(0, 1024));
    std::erase(head, '\0');
    return head.substr(std::min(head.find('<'), head.size())).starts_with("<?xml");
}

/// The text, also without a declaration; null where the bytes are none.
Ref<voString> wholeText(voBuffer *bytes) {
    Ref text(xmlDocumentTryDecodeText(bytes));
    if (text || hasDeclaration(bytes)) return text;
    using namespace std::string_view_literals;
    static constexpr std::pair<std::string_view, voCharset> starts[] = {
        {"\xFF\xFE"sv, VO_CHARSET_UTF_16}, {"\xFE\xFF"sv, VO_CHARSET_UTF_16},
        {"<\0"sv, VO_CHARSET_UTF_16LE},    {"\0<"sv, VO_CHARSET_UTF_16BE},
        {""sv, VO_CHARSET_UTF_8},
    };
    const auto start = std::ranges::find_if(starts, [bytes](const auto &candidate) {
        return bytesOf(bytes).starts_with(candidate.first);
    });
    return Ref(
        voCharsetTryConvertBufferToStringWithFlags(start->second, bytes, VO_CHARSET_FLAG_BOM));
}

Status refuseAll(const Input &input, Verdict verdict) {
    if (verdict.hasDoctype) {
        const Decoded imported = decode(input.bytes, {.locations = true, .import = true});
        return refuse(input, {{*imported.failure}, false}, textOf(input));
    }
    Ref text = wholeText(input.bytes);
    if (text) return refuse(input, findErrors(chars(text), verdict), text);
    const bool isUndeclared = !hasDeclaration(input.bytes);
    Decoded decoded = decode(input.bytes, {.locations = true, .import = isUndeclared});
    if (isUndeclared)
        decoded.failure->hint = "not all bytes are UTF-8; a declaration can name another encoding";
    return refuse(input, {{*std::move(decoded.failure)}, false}, textOf(input));
}

/// Tells that the decoder refuses a document that is right.
void note(const Input &input, bool isImported) {
    const Decoded decoded = decode(input.bytes, {.locations = true});
    Ref text = textOf(input);
    report({input.name, decoded.failure->place,
            isImported ? "well-formed, but read only by importing: 'voxml import', or --import"
                       : "well-formed for others, but not read by voxml",
            decoded.failure->code, shown(decoded.failure->hint), Severity::note},
           chars(text));
}

/// An input that Expat takes, in which the use of namespaces may be wrong.
Status accept(const Request &request, const Input &input) {
    if (request.quiet && !request.namespaces) return fine;
    DecodeWish wish = wishOf(request);
    wish.describe = false;
    Decoded decoded = decode(input.bytes, wish);
    const bool needsImport = !decoded.document && !wish.import;
    if (needsImport) {
        wish.import = true;
        decoded = decode(input.bytes, wish);
        if (!request.quiet) note(input, decoded.document);
    }
    if (!decoded.document || !decoded.failure) return fine;
    wish.describe = true;
    return refuse(request, input, *decode(input.bytes, wish).failure);
}

bool isTakenByImporter(voBuffer *bytes) {
    return decode(bytes, {.import = true, .describe = false}).document;
}

} // namespace

Status checkStrictly(const Request &request, const Input &input) {
    const Verdict verdict = judge(bytesOf(input.bytes), nullptr);
    const bool isRight =
        verdict.hasDoctype ? isTakenByImporter(input.bytes) : verdict.code == XML_ERROR_NONE;
    if (isRight) return accept(request, input);
    return request.quiet ? refused : refuseAll(input, verdict);
}

} // namespace tool
