#include "decode.hpp"

#include "text.hpp"

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
    return {take(xmlDecodeErrorCodeToString(xmlDecodeErrorErrorCode(error))),
            textOf(xmlDecodeErrorToMessage(error)), placeOf(Ref(xmlDecodeErrorLocation(error))),
            takeOptional(xmlDecodeErrorTryHint(error, input))};
}

static Failure failureOf(XML_NS_DECODE_ERROR *taken, voBuffer *input) {
    Ref error(taken);
    return {take(xmlNsDecodeErrorCodeToString(xmlNsDecodeErrorErrorCode(error))),
            textOf(xmlNsDecodeErrorToMessage(error)), placeOf(Ref(xmlNsDecodeErrorLocation(error))),
            takeOptional(xmlNsDecodeErrorTryHint(error, input))};
}

/// A failure is described only with locations: without, decode() comes again for its place.
static Decoded decodeOnce(voBuffer *input, DecodeWish wish) {
    Decoded decoded;
    Ref options = optionsWith(wish.locations ? XML_FLAG_DECODE_LOCATION : 0);
    Ref result(xmlDocumentDecode(input, options, nullptr));
    if (xmlDecodeResultHasError(result)) {
        decoded.failure =
            wish.locations ? failureOf(xmlDecodeResultError(result), input) : Failure();
        return decoded;
    }
    decoded.document = Ref(xmlDecodeResultDocument(result));
    if (!wish.namespaces) return decoded;
    Ref nsResult(xmlNsDocumentTryDecode(decoded.document));
    if (xmlNsDecodeResultHasError(nsResult))
        decoded.failure =
            wish.locations ? failureOf(xmlNsDecodeResultError(nsResult), input) : Failure();
    else
        decoded.nsDocument = Ref(xmlNsDecodeResultDocument(nsResult));
    return decoded;
}

Decoded decode(voBuffer *input, DecodeWish wish) {
    Decoded decoded = decodeOnce(input, wish);
    if (!decoded.failure || wish.locations) return decoded;
    decoded = {};
    return decodeOnce(input, {wish.namespaces, true});
}

} // namespace tool
