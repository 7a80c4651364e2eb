#include "xml/xml_ns_decode_error_code.h"

#include "source/xml/base/xml_enum.hpp"
#include "source/xml/base/xml_module.hpp"

voEnum *xml___NsDecodeErrorCodeEnum;

/// By value, like the messages.
static constexpr const char *names[] = {
    "XML_NS_DECODE_ERROR_CODE_NAMESPACE",
    "XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX",
    "XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX_UNKNOWN",
    "XML_NS_DECODE_ERROR_CODE_LOCAL_NAME",
};
static constexpr const char *messages[] = {
    "invalid XML namespace",
    "invalid XML namespace prefix",
    "XML namespace prefix undefined",
    "invalid XML local name",
};
static_assert(XML_NS_DECODE_ERROR_CODE_OK(std::size(names) - 1) &&
              !XML_NS_DECODE_ERROR_CODE_OK(std::size(names)));
static_assert(std::size(messages) == std::size(names));

void xml___NsDecodeErrorCodeStartup(void) { xml___NsDecodeErrorCodeEnum = xml::makeEnum(names); }

void xml___NsDecodeErrorCodeShutdown(void) { vo::dropField(xml___NsDecodeErrorCodeEnum); }

XML_NS_DECODE_ERROR_CODE xmlNsDecodeErrorCodeFromString(voString *vos) {
    VO_ASSERT(vos);
    return voEnumParse(xml___NsDecodeErrorCodeEnum, vos);
}

voString *xmlNsDecodeErrorCodeToString(XML_NS_DECODE_ERROR_CODE ec) {
    VO_ASSERT(XML_NS_DECODE_ERROR_CODE_OK( ec ));
    return voEnumGenerate(xml___NsDecodeErrorCodeEnum, ec);
}

voString *xmlNsDecodeErrorCodeMessageText(XML_NS_DECODE_ERROR_CODE ec) {
    VO_ASSERT(XML_NS_DECODE_ERROR_CODE_OK( ec ));
    return voStringCreateFromCstr(messages[ec], -1);
}
