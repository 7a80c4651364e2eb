#include "xml/xml_ns_decode_error.h"

#include "source/xml/base/xml_decode_failure.hpp"
#include "source/xml/base/xml_object.hpp"

struct XML_NS_DECODE_ERROR : xml::DecodeError {};

XML_CONSTANT_OBJECT(NsDecodeError, XML_NS_DECODE_ERROR, err);

XML_NS_DECODE_ERROR *xmlNsDecodeErrorCreate(XML_NS_DECODE_ERROR_CODE ec,
                                            voParserLocation *optionalLocation) {
    VO_ASSERT(XML_NS_DECODE_ERROR_CODE_OK( ec ));
    return xml::createDecodeError<XML_NS_DECODE_ERROR>(xmlNsDecodeErrorSort(), ec,
                                                       optionalLocation);
}

XML_NS_DECODE_ERROR_CODE xmlNsDecodeErrorErrorCode(XML_NS_DECODE_ERROR *err) {
    return VO_READ(err)->errorCode;
}

voParserLocation *xmlNsDecodeErrorLocation(XML_NS_DECODE_ERROR *err) {
    return vo::retained(VO_READ(err)->location);
}

int xmlNsDecodeErrorHasLocation(XML_NS_DECODE_ERROR *err) {
    return VO_READ(err)->location != nullptr;
}

voMessage *xmlNsDecodeErrorToMessage(XML_NS_DECODE_ERROR *err) {
    VO_ASSERT(err);
    return xml::errorMessage(err->location, xmlNsDecodeErrorCodeMessageText(err->errorCode));
}
