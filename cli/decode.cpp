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

static Failure failureOf(XML_DECODE_ERROR *taken) {
    Ref error(taken);
    return {take(xmlDecodeErrorCodeToString(xmlDecodeErrorErrorCode(error))),
            textOf(xmlDecodeErrorToMessage(error)), placeOf(Ref(xmlDecodeErrorLocation(error)))};
}

static Failure failureOf(XML_NS_DECODE_ERROR *taken) {
    Ref error(taken);
    return {take(xmlNsDecodeErrorCodeToString(xmlNsDecodeErrorErrorCode(error))),
            textOf(xmlNsDecodeErrorToMessage(error)),
            placeOf(Ref(xmlNsDecodeErrorLocation(error)))};
}

static void decodeNamespaces(Decoded &decoded) {
    Ref result(xmlNsDocumentTryDecode(decoded.document));
    if (xmlNsDecodeResultHasError(result))
        decoded.failure = failureOf(xmlNsDecodeResultError(result));
    else
        decoded.nsDocument = Ref(xmlNsDecodeResultDocument(result));
}

static Decoded decodeOnce(voBuffer *input, DecodeWish wish) {
    Decoded decoded;
    Ref options = optionsWith(wish.locations ? XML_FLAG_DECODE_LOCATION : 0);
    Ref result(xmlDocumentDecode(input, options, nullptr));
    if (xmlDecodeResultHasError(result)) {
        decoded.failure = failureOf(xmlDecodeResultError(result));
        return decoded;
    }
    decoded.document = Ref(xmlDecodeResultDocument(result));
    if (wish.namespaces) decodeNamespaces(decoded);
    return decoded;
}

Decoded decode(voBuffer *input, DecodeWish wish) {
    Decoded decoded = decodeOnce(input, wish);
    if (!decoded.failure || wish.locations) return decoded;
    decoded = {};
    return decodeOnce(input, {wish.namespaces, true});
}

} // namespace tool
