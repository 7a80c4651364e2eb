#include "xml/xml_decode_error.h"

#include "source/xml/base/xml_decode_failure.hpp"
#include "source/xml/base/xml_object.hpp"

struct XML_DECODE_ERROR : xml::DecodeError {};

XML_CONSTANT_OBJECT(DecodeError, XML_DECODE_ERROR, err);

XML_DECODE_ERROR *xmlDecodeErrorCreate(XML_DECODE_ERROR_CODE ec,
                                       voParserLocation *optionalLocation) {
    VO_ASSERT(XML_DECODE_ERROR_CODE_OK( ec ));
    return xml::createDecodeError<XML_DECODE_ERROR>(xmlDecodeErrorSort(), ec, optionalLocation);
}

XML_DECODE_ERROR_CODE xmlDecodeErrorErrorCode(XML_DECODE_ERROR *err) {
    return VO_READ(err)->errorCode;
}

voParserLocation *xmlDecodeErrorLocation(XML_DECODE_ERROR *err) {
    return vo::retained(VO_READ(err)->location);
}

int xmlDecodeErrorHasLocation(XML_DECODE_ERROR *err) { return VO_READ(err)->location != nullptr; }

voMessage *xmlDecodeErrorToMessage(XML_DECODE_ERROR *err) {
    VO_ASSERT(err);
    return xml::errorMessage(err->location, xmlDecodeErrorCodeMessageText(err->errorCode));
}
