#include "xml/xml_item_type.h"

#include "source/xml/base/xml_enum.hpp"
#include "source/xml/base/xml_module.hpp"

voEnum *xml___ItemTypeEnum;

/// By value.
static constexpr const char *names[] = {
    "XML_ITEM_TYPE_ELEMENT", "XML_ITEM_TYPE_PROCESSING_INSTRUCTION",
    "XML_ITEM_TYPE_COMMENT", "XML_ITEM_TYPE_TEXT",
    "XML_ITEM_TYPE_CDATA",
};
static_assert(XML_ITEM_TYPE_OK(std::size(names) - 1) && !XML_ITEM_TYPE_OK(std::size(names)));

void xml___ItemTypeStartup(void) { xml___ItemTypeEnum = xml::makeEnum(names); }

void xml___ItemTypeShutdown(void) { vo::dropField(xml___ItemTypeEnum); }

XML_ITEM_TYPE xmlItemTypeFromString(voString *vos) {
    VO_ASSERT(vos);
    return voEnumParse(xml___ItemTypeEnum, vos);
}

voString *xmlItemTypeToString(XML_ITEM_TYPE it) {
    VO_ASSERT(XML_ITEM_TYPE_OK( it ));
    return voEnumGenerate(xml___ItemTypeEnum, it);
}
