#include "xml/xml_ns_attributes.h"

#include "source/xml/base/xml_attribute_list.hpp"
#include "source/xml/base/xml_object.hpp"
#include "source/xml/ns/xml_ns_attribute.hpp"
#include "source/xml/ns/xml_ns_attributes.hpp"
#include "xml/xml_ns_value.h"

using vo::Ref;
using vo::retained;

XML_OBJECT(NsAttributes, XML_NS_ATTRIBUTES, attrs);

namespace {

struct Namespaced {
    using List = XML_NS_ATTRIBUTES;
    using Attribute = XML_NS_ATTRIBUTE;

    static xml::AttributeKey key(XML_NS_ATTRIBUTE *attr) { return {attr->localName, attr->ns}; }
};

using Attributes = xml::AttributeList<Namespaced>;

/// The attribute with this name, borrowed, or null.
XML_NS_ATTRIBUTE *find(XML_NS_ATTRIBUTES *attrs, voString *localName, voString *optionalNs) {
    VO_ASSERT(attrs);
    VO_ASSERT(xmlNsValueLocalNameOk( localName ));
    VO_ASSERT(!optionalNs || xmlNsValueNamespaceOk( optionalNs ));
    return Attributes::find(attrs, {localName, optionalNs});
}

} // namespace

int64_t xml___NsAttributesDeleteDuplicate(XML_NS_ATTRIBUTES **attrs, int64_t index) {
    return Attributes::removeDuplicate(VO_EDIT(attrs), index);
}

// ---------------------------------------------------------------- the whole list

XML_NS_ATTRIBUTES *xmlNsAttributesCreate(void) {
    auto *attrs = vo::create<XML_NS_ATTRIBUTES>(xmlNsAttributesSort());
    attrs->vector = voVectorCreate();
    return attrs;
}
int64_t xmlNsAttributesLength(XML_NS_ATTRIBUTES *attrs) {
    return voVectorLength(VO_READ(attrs)->vector);
}
voVector *xmlNsAttributesVector(XML_NS_ATTRIBUTES *attrs) {
    return retained(VO_READ(attrs)->vector);
}
void xmlNsAttributesSetVector(XML_NS_ATTRIBUTES **attrs, voVector *vec) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(voVectorContainsOnly( vec, xmlNsAttributeSort() ));
    Attributes::assign(VO_EDIT(attrs), vec);
}
void xmlNsAttributesClear(XML_NS_ATTRIBUTES **attrs) { voVectorClear(&VO_EDIT(attrs)->vector); }
void xmlNsAttributesInsert(XML_NS_ATTRIBUTES **attrs, int64_t index, XML_NS_ATTRIBUTES *others) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(others);
    Ref source(retained(others)); // `others` may be the list itself
    Attributes::insertAll(VO_EDIT(attrs), index, source);
}
void xmlNsAttributesPrepend(XML_NS_ATTRIBUTES **attrs, XML_NS_ATTRIBUTES *others) {
    xmlNsAttributesInsert(attrs, 0, others);
}
void xmlNsAttributesAppend(XML_NS_ATTRIBUTES **attrs, XML_NS_ATTRIBUTES *others) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesInsert(attrs, xmlNsAttributesLength(*attrs), others);
}

// ---------------------------------------------------------------- by index

XML_NS_ATTRIBUTE *xmlNsAttributesAttributeAt(XML_NS_ATTRIBUTES *attrs, int64_t index) {
    return Attributes::at(VO_READ(attrs), index);
}
voString *xmlNsAttributesAttributeLocalNameAt(XML_NS_ATTRIBUTES *attrs, int64_t index) {
    return xmlNsAttributeLocalName(Ref(xmlNsAttributesAttributeAt(attrs, index)));
}
voString *xmlNsAttributesAttributeNamespaceAt(XML_NS_ATTRIBUTES *attrs, int64_t index) {
    return xmlNsAttributeNamespace(Ref(xmlNsAttributesAttributeAt(attrs, index)));
}
int xmlNsAttributesAttributeHasNamespaceAt(XML_NS_ATTRIBUTES *attrs, int64_t index) {
    return xmlNsAttributeHasNamespace(Ref(xmlNsAttributesAttributeAt(attrs, index)));
}
XML_TEXT *xmlNsAttributesAttributeTextAt(XML_NS_ATTRIBUTES *attrs, int64_t index) {
    return xmlNsAttributeText(Ref(xmlNsAttributesAttributeAt(attrs, index)));
}
voString *xmlNsAttributesAttributeTextValueAt(XML_NS_ATTRIBUTES *attrs, int64_t index) {
    return xmlNsAttributeTextValue(Ref(xmlNsAttributesAttributeAt(attrs, index)));
}
voString *xmlNsAttributesAttributeTextTryUnescapeAt(XML_NS_ATTRIBUTES *attrs, int64_t index) {
    return xmlNsAttributeTextTryUnescape(Ref(xmlNsAttributesAttributeAt(attrs, index)));
}
void xmlNsAttributesSetAttributeAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                   XML_NS_ATTRIBUTE *attr) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(attr);
    Attributes::setAt(VO_EDIT(attrs), index, attr);
}
void xmlNsAttributesSetAttributeNameAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                       voString *localName, voString *optionalNs) {
    VO_ASSERT_REF(attrs);
    Ref attr(xmlNsAttributesAttributeAt(*attrs, index));
    xmlNsAttributeSetName(attr.edit(), localName, optionalNs);
    xmlNsAttributesSetAttributeAt(attrs, index, attr);
}
void xmlNsAttributesSetAttributeTextAt(XML_NS_ATTRIBUTES **attrs, int64_t index, XML_TEXT *text) {
    VO_ASSERT_REF(attrs);
    Ref attr(xmlNsAttributesAttributeAt(*attrs, index));
    xmlNsAttributeSetText(attr.edit(), text);
    xmlNsAttributesSetAttributeAt(attrs, index, attr);
}
void xmlNsAttributesSetAttributeTextValueAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                            voString *value) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesSetAttributeTextAt(attrs, index, Ref(xmlTextCreateValue(value)));
}
void xmlNsAttributesSetAttributeTextEscapeAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                             voString *vos) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesSetAttributeTextAt(attrs, index, Ref(xmlTextCreateEscape(vos)));
}
void xmlNsAttributesSetAttributeNameTextAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                           voString *localName, voString *optionalNs,
                                           XML_TEXT *text) {
    VO_ASSERT_REF(attrs);
    Ref attr(xmlNsAttributesAttributeAt(*attrs, index));
    xmlNsAttributeSetName(attr.edit(), localName, optionalNs);
    xmlNsAttributeSetText(attr.edit(), text);
    xmlNsAttributesSetAttributeAt(attrs, index, attr);
}
void xmlNsAttributesSetAttributeNameTextValueAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                voString *localName, voString *optionalNs,
                                                voString *value) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesSetAttributeNameTextAt(attrs, index, localName, optionalNs,
                                          Ref(xmlTextCreateValue(value)));
}
void xmlNsAttributesSetAttributeNameTextEscapeAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                 voString *localName, voString *optionalNs,
                                                 voString *vos) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesSetAttributeNameTextAt(attrs, index, localName, optionalNs,
                                          Ref(xmlTextCreateEscape(vos)));
}
void xmlNsAttributesDelAttributeAt(XML_NS_ATTRIBUTES **attrs, int64_t index) {
    voVectorDelAt(&VO_EDIT(attrs)->vector, index);
}

// ---------------------------------------------------------------- placing one attribute

void xmlNsAttributesInsertAttribute(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                    XML_NS_ATTRIBUTE *attr) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(attr);
    Attributes::insert(VO_EDIT(attrs), index, attr);
}
void xmlNsAttributesInsertAttributeNameText(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                            voString *localName, voString *optionalNs,
                                            XML_TEXT *text) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesInsertAttribute(attrs, index,
                                   Ref(xmlNsAttributeCreateText(localName, optionalNs, text)));
}
void xmlNsAttributesInsertAttributeNameTextValue(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                 voString *localName, voString *optionalNs,
                                                 voString *value) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesInsertAttribute(
        attrs, index, Ref(xmlNsAttributeCreateTextValue(localName, optionalNs, value)));
}
void xmlNsAttributesInsertAttributeNameTextEscape(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                  voString *localName, voString *optionalNs,
                                                  voString *vos) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesInsertAttribute(attrs, index,
                                   Ref(xmlNsAttributeCreateTextEscape(localName, optionalNs, vos)));
}

void xmlNsAttributesPrependAttribute(XML_NS_ATTRIBUTES **attrs, XML_NS_ATTRIBUTE *attr) {
    xmlNsAttributesInsertAttribute(attrs, 0, attr);
}
void xmlNsAttributesPrependAttributeNameText(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                             voString *optionalNs, XML_TEXT *text) {
    xmlNsAttributesInsertAttributeNameText(attrs, 0, localName, optionalNs, text);
}
void xmlNsAttributesPrependAttributeNameTextValue(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                                  voString *optionalNs, voString *value) {
    xmlNsAttributesInsertAttributeNameTextValue(attrs, 0, localName, optionalNs, value);
}
void xmlNsAttributesPrependAttributeNameTextEscape(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                                   voString *optionalNs, voString *vos) {
    xmlNsAttributesInsertAttributeNameTextEscape(attrs, 0, localName, optionalNs, vos);
}

void xmlNsAttributesAppendAttribute(XML_NS_ATTRIBUTES **attrs, XML_NS_ATTRIBUTE *attr) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesInsertAttribute(attrs, xmlNsAttributesLength(*attrs), attr);
}
void xmlNsAttributesAppendAttributeNameText(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                            voString *optionalNs, XML_TEXT *text) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesAppendAttribute(attrs,
                                   Ref(xmlNsAttributeCreateText(localName, optionalNs, text)));
}
void xmlNsAttributesAppendAttributeNameTextValue(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                                 voString *optionalNs, voString *value) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesAppendAttribute(
        attrs, Ref(xmlNsAttributeCreateTextValue(localName, optionalNs, value)));
}
void xmlNsAttributesAppendAttributeNameTextEscape(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                                  voString *optionalNs, voString *vos) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesAppendAttribute(attrs,
                                   Ref(xmlNsAttributeCreateTextEscape(localName, optionalNs, vos)));
}

// ---------------------------------------------------------------- by name

XML_NS_ATTRIBUTE *xmlNsAttributesAttribute(XML_NS_ATTRIBUTES *attrs, voString *localName,
                                           voString *optionalNs) {
    return retained(find(attrs, localName, optionalNs));
}
XML_TEXT *xmlNsAttributesAttributeText(XML_NS_ATTRIBUTES *attrs, voString *localName,
                                       voString *optionalNs) {
    XML_NS_ATTRIBUTE *attr = find(attrs, localName, optionalNs);
    return attr ? xmlNsAttributeText(attr) : nullptr;
}
voString *xmlNsAttributesAttributeTextValue(XML_NS_ATTRIBUTES *attrs, voString *localName,
                                            voString *optionalNs) {
    XML_NS_ATTRIBUTE *attr = find(attrs, localName, optionalNs);
    return attr ? xmlNsAttributeTextValue(attr) : nullptr;
}
voString *xmlNsAttributesAttributeTextTryUnescape(XML_NS_ATTRIBUTES *attrs, voString *localName,
                                                  voString *optionalNs) {
    XML_NS_ATTRIBUTE *attr = find(attrs, localName, optionalNs);
    return attr ? xmlNsAttributeTextTryUnescape(attr) : nullptr;
}
int xmlNsAttributesHasAttribute(XML_NS_ATTRIBUTES *attrs, voString *localName,
                                voString *optionalNs) {
    return find(attrs, localName, optionalNs) != nullptr;
}
void xmlNsAttributesSetAttribute(XML_NS_ATTRIBUTES **attrs, XML_NS_ATTRIBUTE *attr) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(attr);
    Attributes::set(VO_EDIT(attrs), attr);
}
void xmlNsAttributesSetAttributeNameText(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                         voString *optionalNs, XML_TEXT *text) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesSetAttribute(attrs, Ref(xmlNsAttributeCreateText(localName, optionalNs, text)));
}
void xmlNsAttributesSetAttributeNameTextValue(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                              voString *optionalNs, voString *value) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesSetAttribute(attrs,
                                Ref(xmlNsAttributeCreateTextValue(localName, optionalNs, value)));
}
void xmlNsAttributesSetAttributeNameTextEscape(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                               voString *optionalNs, voString *vos) {
    VO_ASSERT_REF(attrs);
    xmlNsAttributesSetAttribute(attrs,
                                Ref(xmlNsAttributeCreateTextEscape(localName, optionalNs, vos)));
}
void xmlNsAttributesDelAttribute(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                 voString *optionalNs) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(xmlNsValueLocalNameOk( localName ));
    VO_ASSERT(!optionalNs || xmlNsValueNamespaceOk( optionalNs ));
    int64_t index = Attributes::indexOf(*attrs, {localName, optionalNs});
    if (index >= 0) xmlNsAttributesDelAttributeAt(attrs, index);
}
