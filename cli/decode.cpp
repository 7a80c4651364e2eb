#include "decode.hpp"

#include "text.hpp"

#include "xml/xml_import.h"

#include <algorithm>
#include <iterator>

namespace tool {

std::optional<Place> placeOf(voParserLocation *location) {
    if (!location) return std::nullopt;
    return Place{voParserLocationOffset(location), voParserLocationLine(location),
                 voParserLocationColumn(location)};
}

Ref<XML_OPTIONS> optionsWith(XML_FLAGS flags) {
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), flags);
    return options;
}

static std::string textOf(voMessage *taken) {
    Ref message(taken);
    return take(voMessageText(message));
}

/// Null becomes the empty string.
static std::string takeOptional(voString *string) { return string ? take(string) : std::string(); }

static Failure failureOf(XML_DECODE_ERROR *taken, voBuffer *input) {
    Ref error(taken);
    const auto place = placeOf(Ref(xmlDecodeErrorLocation(error)));
    const auto closer = placeOf(Ref(xmlDecodeErrorTryHintLocation(error, input)));
    return {take(xmlDecodeErrorCodeToString(xmlDecodeErrorErrorCode(error))),
            textOf(xmlDecodeErrorToMessage(error)), closer ? closer : place,
            takeOptional(xmlDecodeErrorTryHint(error, input)), place};
}

static Failure failureOf(XML_NS_DECODE_ERROR *taken, voBuffer *input) {
    Ref error(taken);
    return {take(xmlNsDecodeErrorCodeToString(xmlNsDecodeErrorErrorCode(error))),
            textOf(xmlNsDecodeErrorToMessage(error)), placeOf(Ref(xmlNsDecodeErrorLocation(error))),
            takeOptional(xmlNsDecodeErrorTryHint(error, input))};
}

/// A failure is described only with locations: without, decode() comes again for its place.
static void decodePlain(voBuffer *input, DecodeWish wish, Decoded &decoded) {
    Ref options = optionsWith(wish.locations ? XML_FLAG_DECODE_LOCATION : 0);
    Ref result(xmlDocumentDecode(input, options, nullptr));
    if (xmlDecodeResultHasDocument(result))
        decoded.document = Ref(xmlDecodeResultDocument(result));
    else
        decoded.failure =
            wish.locations ? failureOf(xmlDecodeResultError(result), input) : Failure();
}

static void import(voBuffer *input, DecodeWish wish, Decoded &decoded) {
    XML_IMPORT_OPTIONS options{};
    options.locations = wish.locations;
    XML_IMPORT_ERROR error{};
    decoded.document = Ref(xmlDocumentTryImport(input, &options, nullptr, &error));
    if (decoded.document) return;
    Ref location(voMessageLocation(error.message));
    decoded.failure = {{}, textOf(error.message), placeOf(location), {}};
}

static Decoded decodeOnce(voBuffer *input, DecodeWish wish) {
    Decoded decoded;
    (wish.import ? import : decodePlain)(input, wish, decoded);
    if (decoded.failure || !wish.namespaces) return decoded;
    Ref nsResult(xmlNsDocumentTryDecode(decoded.document));
    if (xmlNsDecodeResultHasError(nsResult))
        decoded.failure =
            wish.locations ? failureOf(xmlNsDecodeResultError(nsResult), input) : Failure();
    else
        decoded.nsDocument = Ref(xmlNsDecodeResultDocument(nsResult));
    return decoded;
}

/// Whether importing takes an input that decoding has refused for this reason.
static bool canBeImported(voBuffer *input, std::string_view code) {
    static constexpr std::string_view lifted[] = {"CHARSET", "XML_DECLARATION", "DOCTYPE",
                                                  "COMMENT", "ATTRIBUTE_LIST",  "TEXT"};
    code.remove_prefix(std::min(code.size(), std::string_view("XML_DECODE_ERROR_CODE_").size()));
    if (std::ranges::find(lifted, code) == std::end(lifted)) return false;
    Decoded decoded;
    import(input, {}, decoded);
    return !decoded.failure;
}

Decoded decode(voBuffer *input, DecodeWish wish) {
    Decoded decoded = decodeOnce(input, wish);
    if (!decoded.failure || wish.locations || !wish.describe) return decoded;
    wish.locations = true;
    decoded = decodeOnce(input, wish);
    if (!wish.import && !decoded.document && decoded.failure &&
        canBeImported(input, decoded.failure->code))
        decoded.failure->hint += (decoded.failure->hint.empty() ? "" : "; ") +
                                 std::string("importing takes it: 'voxml import', or --import");
    return decoded;
}

} // namespace tool
