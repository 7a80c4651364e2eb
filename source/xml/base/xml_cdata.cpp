#include "xml/xml_cdata.h"

#include "source/xml/base/xml_cdata.hpp"
#include "source/xml/base/xml_object.hpp"
#include "xml/xml_value.h"

XML_OBJECT(Cdata, XML_CDATA, cdata);
XML_LOCATION(Cdata, XML_CDATA, cdata);

XML_CDATA *xmlCdataCreate(voString *value) {
    VO_ASSERT(xmlValueCdataOk( value ));
    return xml::createCharacterData<XML_CDATA>(xmlCdataSort(), value);
}

voString *xmlCdataValue(XML_CDATA *cdata) { return vo::retained(VO_READ(cdata)->value); }

void xmlCdataSetValue(XML_CDATA **cdata, voString *value) {
    VO_ASSERT_REF(cdata);
    VO_ASSERT(xmlValueCdataOk( value ));
    vo::assign(VO_EDIT(cdata)->value, value);
}
