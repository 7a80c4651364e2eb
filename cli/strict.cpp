#include "strict.hpp"

#include "errors.hpp"
#include "finding.hpp"
#include "markup.hpp"
#include "misfit.hpp"

#include <algorithm>
#include <utility>

namespace tool {
namespace {

using namespace std::string_view_literals;

std::string_view bytesOf(voBuffer *buffer) {
    return {reinterpret_cast<const char *>(voBufferBacking(buffer)),
            static_cast<size_t>(voBufferLength(buffer))};
}

// ---------------------------------------------------------------- the input

/// How an input begins: without marks, and the bytes that UTF-16 and UTF-32 have more.
std::string headOf(voBuffer *bytes) {
    std::string head(bytesOf(bytes).substr(0, 1024));
    std::erase(head, '\0');
    for (const std::string_view mark : {"\xEF\xBB\xBF"sv, "\xFF\xFE"sv, "\xFE\xFF"sv})
        if (head.starts_with(mark)) head.erase(0, mark.size());
    return head.erase(0, skipXmlSpace(head, 0));
}

/// The text, also of a document without a declaration; null where the bytes are none, or where the
/// declaration names an encoding that it is not in itself.
Ref<voString> wholeText(voBuffer *bytes) {
    if (isDeclaration(headOf(bytes))) {
        Ref text(xmlDocumentTryDecodeText(bytes));
        return text && isDeclaration(utf8(chars(text))) ? std::move(text) : Ref<voString>();
    }
    static constexpr std::pair<std::string_view, voCharset> starts[] = {
        {"\xFF\xFE"sv, VO_CHARSET_UTF_16}, {"\xFE\xFF"sv, VO_CHARSET_UTF_16},
        {"<\0"sv, VO_CHARSET_UTF_16LE},    {"\0<"sv, VO_CHARSET_UTF_16BE},
        {""sv, VO_CHARSET_UTF_8},
    };
    const auto start = std::ranges::find_if(
        starts, [all = bytesOf(bytes)](const auto &one) { return all.starts_with(one.first); });
    return Ref(
        voCharsetTryConvertBufferToStringWithFlags(start->second, bytes, VO_CHARSET_FLAG_BOM));
}

// ---------------------------------------------------------------- errors

Failure failureOf(const Finding &finding, Chars text, std::string_view utf8) {
    return {{}, finding.text, placeAt(text, characterOf(utf8, finding.at)), finding.hint};
}

/// What Expat finds, up to an error that is no wrong reference.
std::vector<Failure> findByExpat(Chars text, std::string utf8) {
    std::vector<Failure> found;
    while (found.size() <= mostErrors) {
        const Verdict verdict = judge(utf8, "UTF-8");
        if (verdict.code == XML_ERROR_NONE || verdict.hasDoctype) break;
        const Finding finding = describe(utf8, verdict);
        found.push_back(failureOf(finding, text, utf8));
        if (!finding.isReference || finding.at == utf8.size()) break;
        utf8[finding.at] = ' ';
    }
    return found;
}

/// From where on Expat's errors are those that the decoder tells, too.
int64_t firstPlace(const std::vector<Failure> &failures, Chars text) {
    const auto end = static_cast<int64_t>(text.size());
    if (failures.empty() || !failures.front().decoderPlace) return end + 1;
    if (failures.front().code == "XML_DECODE_ERROR_CODE_XML_DECLARATION") return 0;
    const bool isAboutEnd = failures.front().code == "XML_DECODE_ERROR_CODE_TAG_NOT_CLOSED";
    return isAboutEnd ? end : failures.front().decoderPlace->offset;
}

bool isWellFormed(const std::string &utf8) { return judge(utf8, "UTF-8").code == XML_ERROR_NONE; }

Errors findErrors(Chars text, Verdict verdict) {
    const std::string utf8 = tool::utf8(text);
    Errors errors = strictErrors(isWellFormed, text);
    std::vector<Failure> found = findByExpat(text, utf8);
    const int64_t first = firstPlace(errors.list, text);
    std::erase_if(found, [first](const Failure &one) { return one.place->offset >= first; });
    const bool isAboutEncoding =
        verdict.code == XML_ERROR_UNKNOWN_ENCODING || verdict.code == XML_ERROR_INCORRECT_ENCODING;
    if (isAboutEncoding || (errors.list.empty() && found.empty()))
        found.insert(found.begin(), failureOf(describeEncoding(utf8, verdict.code), text, utf8));
    errors.list.insert(errors.list.begin(), found.begin(), found.end());
    errors.hasMore |= errors.list.size() > mostErrors;
    errors.list.resize(std::min(errors.list.size(), mostErrors));
    return errors;
}

/// Of what is no text, or not read as one.
Failure findError(const Input &input, Verdict verdict) {
    const std::string head = headOf(input.bytes);
    const bool isUndeclared = head.starts_with('<') && !isDeclaration(head);
    const bool isImported = isUndeclared || verdict.hasDoctype;
    Decoded decoded = decode(input.bytes, {.locations = true, .import = isImported});
    if (isUndeclared && !verdict.hasDoctype)
        decoded.failure->hint = "not all bytes are UTF-8; a declaration can name another encoding";
    return *std::move(decoded.failure);
}

/// What does not look like XML is recognized by the decoder.
Status refuseAll(const Input &input, Verdict verdict) {
    Ref text = wholeText(input.bytes);
    if (verdict.hasDoctype || !text || chars(text).empty())
        return refuse(input, {{findError(input, verdict)}, false}, textOf(input));
    Errors errors = findErrors(chars(text), verdict);
    const std::string head = headOf(input.bytes);
    if (!head.empty() && !head.starts_with('<'))
        if (const Decoded decoded = decode(input.bytes, {.locations = true}); decoded.failure)
            errors.list.front().hint = decoded.failure->hint;
    return refuse(input, errors, text);
}

// ---------------------------------------------------------------- inputs that are right

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

/// The use of namespaces may still be wrong.
Status accept(const Request &request, const Input &input) {
    if (request.quiet && !request.namespaces) return fine;
    DecodeWish wish = wishOf(request);
    wish.describe = false;
    Decoded decoded = decode(input.bytes, wish);
    if (!decoded.document && !wish.import) {
        wish.import = true;
        decoded = decode(input.bytes, wish);
        if (!request.quiet) note(input, decoded.document);
    }
    if (!decoded.document || !decoded.failure) return fine;
    wish.describe = !request.quiet;
    return refuse(request, input, *decode(input.bytes, wish).failure);
}

bool isImported(voBuffer *bytes) {
    return decode(bytes, {.import = true, .describe = false}).document;
}

} // namespace

Status checkStrictly(const Request &request, const Input &input) {
    const Verdict verdict = judge(bytesOf(input.bytes), nullptr);
    const bool isRight =
        verdict.hasDoctype ? isImported(input.bytes) : verdict.code == XML_ERROR_NONE;
    if (isRight) return accept(request, input);
    return request.quiet ? refused : refuseAll(input, verdict);
}

Status refuseImport(const Request &request, const Input &input, const Failure &failure) {
    if (request.quiet) return refused;
    const Verdict verdict = judge(bytesOf(input.bytes), nullptr);
    const bool isKnown = verdict.code != XML_ERROR_NONE && !verdict.hasDoctype &&
                         verdict.code != XML_ERROR_UNKNOWN_ENCODING;
    return isKnown ? refuseAll(input, verdict) : refuse(request, input, failure);
}

} // namespace tool
