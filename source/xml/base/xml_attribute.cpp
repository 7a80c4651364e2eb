#include "xml/xml_attribute.h"

#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_object.hpp"
#include "xml/xml_value.h"

using vo::assign;
using vo::retained;

XML_OBJECT(Attribute, XML_ATTRIBUTE, attr);
XML_LOCATION(Attribute, XML_ATTRIBUTE, attr);

/// Adopts `text`. The name must be checked before the text is made.
static XML_ATTRIBUTE *create(voString *name, XML_TEXT *text) {
    auto *attr = vo::create<XML_ATTRIBUTE>(xmlAttributeSort());
    attr->name = retained(name);
    attr->text = text;
    return attr;
}

XML_ATTRIBUTE *xmlAttributeCreate(voString *name) {
    VO_ASSERT(xmlValueNameOk( name ));
    return create(name, xmlTextCreate());
}
XML_ATTRIBUTE *xmlAttributeCreateText(voString *name, XML_TEXT *text) {
    VO_ASSERT(xmlValueNameOk( name ));
    VO_ASSERT(text);
    return create(name, retained(text));
}
XML_ATTRIBUTE *xmlAttributeCreateTextValue(voString *name, voString *value) {
    VO_ASSERT(xmlValueNameOk( name ));
    return create(name, xmlTextCreateValue(value));
}
XML_ATTRIBUTE *xmlAttributeCreateTextEscape(voString *name, voString *vos) {
    VO_ASSERT(xmlValueNameOk( name ));
    return create(name, xmlTextCreateEscape(vos));
}

voString *xmlAttributeName(XML_ATTRIBUTE *attr) { return retained(VO_READ(attr)->name); }

void xmlAttributeSetName(XML_ATTRIBUTE **attr, voString *name) {
    VO_ASSERT_REF(attr);
    VO_ASSERT(xmlValueNameOk( name ));
    assign(VO_EDIT(attr)->name, name);
}

XML_TEXT *xmlAttributeText(XML_ATTRIBUTE *attr) { return retained(VO_READ(attr)->text); }
voString *xmlAttributeTextValue(XML_ATTRIBUTE *attr) { return xmlTextValue(VO_READ(attr)->text); }
voString *xmlAttributeTextTryUnescape(XML_ATTRIBUTE *attr) {
    return xmlTextTryUnescape(VO_READ(attr)->text);
}

void xmlAttributeSetText(XML_ATTRIBUTE **attr, XML_TEXT *text) {
    VO_ASSERT_REF(attr);
    VO_ASSERT(text);
    assign(VO_EDIT(attr)->text, text);
}
void xmlAttributeSetTextValue(XML_ATTRIBUTE **attr, voString *value) {
    xmlTextSetValue(&VO_EDIT(attr)->text, value);
}
void xmlAttributeSetTextEscape(XML_ATTRIBUTE **attr, voString *vos) {
    xmlTextSetEscape(&VO_EDIT(attr)->text, vos);
}
