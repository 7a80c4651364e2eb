#include "xml/xml_ns_attribute.h"

#include "source/xml/base/xml_object.hpp"
#include "source/xml/ns/xml_ns_attribute.hpp"
#include "xml/xml_ns_value.h"

using vo::assign;
using vo::retained;

XML_OBJECT(NsAttribute, XML_NS_ATTRIBUTE, attr);
XML_LOCATION(NsAttribute, XML_NS_ATTRIBUTE, attr);

static void checkName(voString *localName, voString *optionalNs) {
    VO_ASSERT(xmlNsValueLocalNameOk( localName ));
    VO_ASSERT(!optionalNs || xmlNsValueNamespaceOk( optionalNs ));
}

/// Adopts `text`. The name must be checked before the text is made.
static XML_NS_ATTRIBUTE *create(voString *localName, voString *optionalNs, XML_TEXT *text) {
    auto *attr = vo::create<XML_NS_ATTRIBUTE>(xmlNsAttributeSort());
    attr->localName = retained(localName);
    attr->ns = retained(optionalNs);
    attr->text = text;
    return attr;
}

XML_NS_ATTRIBUTE *xmlNsAttributeCreate(voString *localName, voString *optionalNs) {
    checkName(localName, optionalNs);
    return create(localName, optionalNs, xmlTextCreate());
}
XML_NS_ATTRIBUTE *xmlNsAttributeCreateText(voString *localName, voString *optionalNs,
                                           XML_TEXT *text) {
    checkName(localName, optionalNs);
    VO_ASSERT(text);
    return create(localName, optionalNs, retained(text));
}
XML_NS_ATTRIBUTE *xmlNsAttributeCreateTextValue(voString *localName, voString *optionalNs,
                                                voString *value) {
    checkName(localName, optionalNs);
    return create(localName, optionalNs, xmlTextCreateValue(value));
}
XML_NS_ATTRIBUTE *xmlNsAttributeCreateTextEscape(voString *localName, voString *optionalNs,
                                                 voString *vos) {
    checkName(localName, optionalNs);
    return create(localName, optionalNs, xmlTextCreateEscape(vos));
}

void xmlNsAttributeSetName(XML_NS_ATTRIBUTE **attr, voString *localName, voString *optionalNs) {
    xmlNsAttributeSetLocalName(attr, localName);
    if (optionalNs)
        xmlNsAttributeSetNamespace(attr, optionalNs);
    else
        xmlNsAttributeDelNamespace(attr);
}
voString *xmlNsAttributeLocalName(XML_NS_ATTRIBUTE *attr) {
    return retained(VO_READ(attr)->localName);
}
void xmlNsAttributeSetLocalName(XML_NS_ATTRIBUTE **attr, voString *localName) {
    VO_ASSERT_REF(attr);
    VO_ASSERT(xmlNsValueLocalNameOk( localName ));
    assign(VO_EDIT(attr)->localName, localName);
}
voString *xmlNsAttributeNamespace(XML_NS_ATTRIBUTE *attr) { return retained(VO_READ(attr)->ns); }
int xmlNsAttributeHasNamespace(XML_NS_ATTRIBUTE *attr) { return VO_READ(attr)->ns != nullptr; }
void xmlNsAttributeSetNamespace(XML_NS_ATTRIBUTE **attr, voString *ns) {
    VO_ASSERT_REF(attr);
    VO_ASSERT(xmlNsValueNamespaceOk( ns ));
    assign(VO_EDIT(attr)->ns, ns);
}
void xmlNsAttributeDelNamespace(XML_NS_ATTRIBUTE **attr) { assign(VO_EDIT(attr)->ns, nullptr); }

XML_TEXT *xmlNsAttributeText(XML_NS_ATTRIBUTE *attr) { return retained(VO_READ(attr)->text); }
voString *xmlNsAttributeTextValue(XML_NS_ATTRIBUTE *attr) {
    return xmlTextValue(VO_READ(attr)->text);
}
voString *xmlNsAttributeTextTryUnescape(XML_NS_ATTRIBUTE *attr) {
    return xmlTextTryUnescape(VO_READ(attr)->text);
}

void xmlNsAttributeSetText(XML_NS_ATTRIBUTE **attr, XML_TEXT *text) {
    VO_ASSERT_REF(attr);
    VO_ASSERT(text);
    assign(VO_EDIT(attr)->text, text);
}
void xmlNsAttributeSetTextValue(XML_NS_ATTRIBUTE **attr, voString *value) {
    xmlTextSetValue(&VO_EDIT(attr)->text, value);
}
void xmlNsAttributeSetTextEscape(XML_NS_ATTRIBUTE **attr, voString *vos) {
    xmlTextSetEscape(&VO_EDIT(attr)->text, vos);
}
