#include "xml/xml_ns_decode_result.h"

#include "source/xml/base/xml_decode_failure.hpp"
#include "source/xml/base/xml_object.hpp"

struct XML_NS_DECODE_RESULT : xml::DecodeResult<XML_NS_DOCUMENT, XML_NS_DECODE_ERROR> {};

// Written out because callers know the free function by this name.
VO_CONSTANT_OBJECT(xmlNsDecodeResult, XML_NS_DECODE_RESULT, xml___sort_XML_NS_DECODE_RESULT,
                   xmlNs___DecodeResultFreeFunc, &xml___module, res);

XML_NS_DECODE_RESULT *xmlNsDecodeResultCreate(XML_NS_DOCUMENT *document) {
    VO_ASSERT(document);
    return xml::createDecodeResult<XML_NS_DECODE_RESULT>(xmlNsDecodeResultSort(), document,
                                                         nullptr);
}

XML_NS_DECODE_RESULT *xmlNsDecodeResultCreateError(XML_NS_DECODE_ERROR *error) {
    VO_ASSERT(error);
    return xml::createDecodeResult<XML_NS_DECODE_RESULT>(xmlNsDecodeResultSort(), nullptr, error);
}

XML_NS_DOCUMENT *xmlNsDecodeResultDocument(XML_NS_DECODE_RESULT *res) {
    return vo::retained(VO_READ(res)->document);
}

int xmlNsDecodeResultHasDocument(XML_NS_DECODE_RESULT *res) {
    return VO_READ(res)->document != nullptr;
}

XML_NS_DECODE_ERROR *xmlNsDecodeResultError(XML_NS_DECODE_RESULT *res) {
    return vo::retained(VO_READ(res)->error);
}

int xmlNsDecodeResultHasError(XML_NS_DECODE_RESULT *res) { return VO_READ(res)->error != nullptr; }
