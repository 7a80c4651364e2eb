#include "xml/xml_decode_error_code.h"

#include "source/xml/base/xml_enum.hpp"
#include "source/xml/base/xml_module.hpp"

voEnum *xml___DecodeErrorCodeEnum;

/// By value, like the messages.
static constexpr const char *names[] = {
    "XML_DECODE_ERROR_CODE_CHARSET",
    "XML_DECODE_ERROR_CODE_XML_DECLARATION",
    "XML_DECODE_ERROR_CODE_DOCTYPE",
    "XML_DECODE_ERROR_CODE_TAG",
    "XML_DECODE_ERROR_CODE_TAG_MISMATCH",
    "XML_DECODE_ERROR_CODE_TAG_NOT_CLOSED",
    "XML_DECODE_ERROR_CODE_PROCESSING_INSTRUCTION",
    "XML_DECODE_ERROR_CODE_COMMENT",
    "XML_DECODE_ERROR_CODE_CDATA",
    "XML_DECODE_ERROR_CODE_ATTRIBUTE_LIST",
    "XML_DECODE_ERROR_CODE_TEXT",
};
static constexpr const char *messages[] = {
    "invalid charset encoding",
    "XML declaration missing or malformed",
    "XML DOCTYPE declaration found; this is not supported",
    "XML element malformed",
    "mismatched opening/closing XML tags",
    "end of XML document encountered where closing tags were expected",
    "XML processing instruction malformed",
    "XML comment malformed",
    "XML CDATA section malformed",
    "XML attribute list malformed",
    "textual content in XML malformed",
};
static_assert(XML_DECODE_ERROR_CODE_OK(std::size(names) - 1) &&
              !XML_DECODE_ERROR_CODE_OK(std::size(names)));
static_assert(std::size(messages) == std::size(names));

void xml___DecodeErrorCodeStartup(void) { xml___DecodeErrorCodeEnum = xml::makeEnum(names); }

void xml___DecodeErrorCodeShutdown(void) { vo::dropField(xml___DecodeErrorCodeEnum); }

XML_DECODE_ERROR_CODE xmlDecodeErrorCodeFromString(voString *vos) {
    VO_ASSERT(vos);
    return voEnumParse(xml___DecodeErrorCodeEnum, vos);
}

voString *xmlDecodeErrorCodeToString(XML_DECODE_ERROR_CODE ec) {
    VO_ASSERT(XML_DECODE_ERROR_CODE_OK( ec ));
    return voEnumGenerate(xml___DecodeErrorCodeEnum, ec);
}

voString *xmlDecodeErrorCodeMessageText(XML_DECODE_ERROR_CODE ec) {
    VO_ASSERT(XML_DECODE_ERROR_CODE_OK( ec ));
    return voStringCreateFromCstr(messages[ec], -1);
}
