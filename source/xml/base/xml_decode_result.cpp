#include "xml/xml_decode_result.h"

#include "source/xml/base/xml_decode_failure.hpp"
#include "source/xml/base/xml_object.hpp"

struct XML_DECODE_RESULT : xml::DecodeResult<XML_DOCUMENT, XML_DECODE_ERROR> {};

XML_CONSTANT_OBJECT(DecodeResult, XML_DECODE_RESULT, result);

XML_DECODE_RESULT *xmlDecodeResultCreate(XML_DOCUMENT *document) {
    VO_ASSERT(document);
    return xml::createDecodeResult<XML_DECODE_RESULT>(xmlDecodeResultSort(), document, nullptr);
}

XML_DECODE_RESULT *xmlDecodeResultCreateError(XML_DECODE_ERROR *error) {
    VO_ASSERT(error);
    return xml::createDecodeResult<XML_DECODE_RESULT>(xmlDecodeResultSort(), nullptr, error);
}

XML_DOCUMENT *xmlDecodeResultDocument(XML_DECODE_RESULT *result) {
    return vo::retained(VO_READ(result)->document);
}

int xmlDecodeResultHasDocument(XML_DECODE_RESULT *result) {
    return VO_READ(result)->document != nullptr;
}

XML_DECODE_ERROR *xmlDecodeResultError(XML_DECODE_RESULT *result) {
    return vo::retained(VO_READ(result)->error);
}

int xmlDecodeResultHasError(XML_DECODE_RESULT *result) { return VO_READ(result)->error != nullptr; }
