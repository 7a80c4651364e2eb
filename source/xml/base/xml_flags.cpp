#include "xml/xml_flags.h"

#include "source/vo/vo_object.hpp"
#include "source/xml/base/xml_module.hpp"

voFlagset *xml___FlagsFlagset;

// The checks show in abort texts as they are spelled here.
void xml___FlagsStartup(void) {
    xml___FlagsFlagset = voFlagsetCreate();
    VO_ASSERT(!voFlagsetHasFlagCstr( *(&xml___FlagsFlagset), "XML_FLAG_DECODE_LOCATION", -1 ));
    voFlagsetSetFlagCstr(&xml___FlagsFlagset, "XML_FLAG_DECODE_LOCATION", -1,
                         XML_FLAG_DECODE_LOCATION);
    VO_ASSERT(!voFlagsetHasFlagCstr( *(&xml___FlagsFlagset), "XML_FLAG_ENCODE_OMIT_XML_DECLARATION", -1 ));
    voFlagsetSetFlagCstr(&xml___FlagsFlagset, "XML_FLAG_ENCODE_OMIT_XML_DECLARATION", -1,
                         XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
}

void xml___FlagsShutdown(void) { vo::dropField(xml___FlagsFlagset); }

XML_FLAGS xmlFlagsNormalize(XML_FLAGS flags) {
    return flags & (XML_FLAG_DECODE_LOCATION | XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
}

XML_FLAGS xmlFlagsFromString(voString *vos) {
    VO_ASSERT(vos);
    return xmlFlagsNormalize(voFlagsetParse(xml___FlagsFlagset, vos));
}

voString *xmlFlagsToString(XML_FLAGS flags) {
    return voFlagsetGenerate(xml___FlagsFlagset, xmlFlagsNormalize(flags));
}
