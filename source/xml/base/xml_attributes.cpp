#include "xml/xml_attributes.h"

#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attribute_list.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_object.hpp"
#include "xml/xml_value.h"

using vo::Ref;
using vo::retained;

XML_OBJECT(Attributes, XML_ATTRIBUTES, attrs);

namespace {

struct Plain {
    using List = XML_ATTRIBUTES;
    using Attribute = XML_ATTRIBUTE;

    static xml::AttributeKey key(XML_ATTRIBUTE *attr) { return {attr->name, nullptr}; }
};

using Attributes = xml::AttributeList<Plain>;

/// The attribute called `name`, borrowed, or null.
XML_ATTRIBUTE *find(XML_ATTRIBUTES *attrs, voString *name) {
    VO_ASSERT(attrs);
    VO_ASSERT(xmlValueNameOk( name ));
    return Attributes::find(attrs, {name, nullptr});
}

} // namespace

int64_t xml___AttributesDeleteDuplicate(XML_ATTRIBUTES **attrs, int64_t index) {
    return Attributes::removeDuplicate(VO_EDIT(attrs), index);
}

// ---------------------------------------------------------------- the whole list

XML_ATTRIBUTES *xmlAttributesCreate(void) {
    auto *attrs = vo::create<XML_ATTRIBUTES>(xmlAttributesSort());
    attrs->vector = voVectorCreate();
    return attrs;
}
int64_t xmlAttributesLength(XML_ATTRIBUTES *attrs) {
    return voVectorLength(VO_READ(attrs)->vector);
}
voVector *xmlAttributesVector(XML_ATTRIBUTES *attrs) { return retained(VO_READ(attrs)->vector); }
void xmlAttributesSetVector(XML_ATTRIBUTES **attrs, voVector *vec) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(voVectorContainsOnly( vec, xmlAttributeSort() ));
    Attributes::assign(VO_EDIT(attrs), vec);
}
void xmlAttributesClear(XML_ATTRIBUTES **attrs) { voVectorClear(&VO_EDIT(attrs)->vector); }
void xmlAttributesInsert(XML_ATTRIBUTES **attrs, int64_t index, XML_ATTRIBUTES *others) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(others);
    Ref source(retained(others)); // `others` may be the list itself
    Attributes::insertAll(VO_EDIT(attrs), index, source);
}
void xmlAttributesPrepend(XML_ATTRIBUTES **attrs, XML_ATTRIBUTES *others) {
    xmlAttributesInsert(attrs, 0, others);
}
void xmlAttributesAppend(XML_ATTRIBUTES **attrs, XML_ATTRIBUTES *others) {
    VO_ASSERT_REF(attrs);
    xmlAttributesInsert(attrs, xmlAttributesLength(*attrs), others);
}

// ---------------------------------------------------------------- by index

XML_ATTRIBUTE *xmlAttributesAttributeAt(XML_ATTRIBUTES *attrs, int64_t index) {
    return Attributes::at(VO_READ(attrs), index);
}
voString *xmlAttributesAttributeNameAt(XML_ATTRIBUTES *attrs, int64_t index) {
    return xmlAttributeName(Ref(xmlAttributesAttributeAt(attrs, index)));
}
XML_TEXT *xmlAttributesAttributeTextAt(XML_ATTRIBUTES *attrs, int64_t index) {
    return xmlAttributeText(Ref(xmlAttributesAttributeAt(attrs, index)));
}
voString *xmlAttributesAttributeTextValueAt(XML_ATTRIBUTES *attrs, int64_t index) {
    return xmlAttributeTextValue(Ref(xmlAttributesAttributeAt(attrs, index)));
}
voString *xmlAttributesAttributeTextTryUnescapeAt(XML_ATTRIBUTES *attrs, int64_t index) {
    return xmlAttributeTextTryUnescape(Ref(xmlAttributesAttributeAt(attrs, index)));
}
void xmlAttributesSetAttributeAt(XML_ATTRIBUTES **attrs, int64_t index, XML_ATTRIBUTE *attr) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(attr);
    Attributes::setAt(VO_EDIT(attrs), index, attr);
}
void xmlAttributesSetAttributeNameAt(XML_ATTRIBUTES **attrs, int64_t index, voString *name) {
    VO_ASSERT_REF(attrs);
    Ref attr(xmlAttributesAttributeAt(*attrs, index));
    xmlAttributeSetName(attr.edit(), name);
    xmlAttributesSetAttributeAt(attrs, index, attr);
}
void xmlAttributesSetAttributeTextAt(XML_ATTRIBUTES **attrs, int64_t index, XML_TEXT *text) {
    VO_ASSERT_REF(attrs);
    Ref attr(xmlAttributesAttributeAt(*attrs, index));
    xmlAttributeSetText(attr.edit(), text);
    xmlAttributesSetAttributeAt(attrs, index, attr);
}
void xmlAttributesSetAttributeTextValueAt(XML_ATTRIBUTES **attrs, int64_t index, voString *value) {
    VO_ASSERT_REF(attrs);
    xmlAttributesSetAttributeTextAt(attrs, index, Ref(xmlTextCreateValue(value)));
}
void xmlAttributesSetAttributeTextEscapeAt(XML_ATTRIBUTES **attrs, int64_t index, voString *vos) {
    VO_ASSERT_REF(attrs);
    xmlAttributesSetAttributeTextAt(attrs, index, Ref(xmlTextCreateEscape(vos)));
}
void xmlAttributesSetAttributeNameTextAt(XML_ATTRIBUTES **attrs, int64_t index, voString *name,
                                         XML_TEXT *text) {
    VO_ASSERT_REF(attrs);
    Ref attr(xmlAttributesAttributeAt(*attrs, index));
    xmlAttributeSetName(attr.edit(), name);
    xmlAttributeSetText(attr.edit(), text);
    xmlAttributesSetAttributeAt(attrs, index, attr);
}
void xmlAttributesSetAttributeNameTextValueAt(XML_ATTRIBUTES **attrs, int64_t index, voString *name,
                                              voString *value) {
    VO_ASSERT_REF(attrs);
    xmlAttributesSetAttributeNameTextAt(attrs, index, name, Ref(xmlTextCreateValue(value)));
}
void xmlAttributesSetAttributeNameTextEscapeAt(XML_ATTRIBUTES **attrs, int64_t index,
                                               voString *name, voString *vos) {
    VO_ASSERT_REF(attrs);
    xmlAttributesSetAttributeNameTextAt(attrs, index, name, Ref(xmlTextCreateEscape(vos)));
}
void xmlAttributesDelAttributeAt(XML_ATTRIBUTES **attrs, int64_t index) {
    voVectorDelAt(&VO_EDIT(attrs)->vector, index);
}

// ---------------------------------------------------------------- placing one attribute

void xmlAttributesInsertAttribute(XML_ATTRIBUTES **attrs, int64_t index, XML_ATTRIBUTE *attr) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(attr);
    Attributes::insert(VO_EDIT(attrs), index, attr);
}
void xmlAttributesInsertAttributeNameText(XML_ATTRIBUTES **attrs, int64_t index, voString *name,
                                          XML_TEXT *text) {
    VO_ASSERT_REF(attrs);
    xmlAttributesInsertAttribute(attrs, index, Ref(xmlAttributeCreateText(name, text)));
}
void xmlAttributesInsertAttributeNameTextValue(XML_ATTRIBUTES **attrs, int64_t index,
                                               voString *name, voString *value) {
    VO_ASSERT_REF(attrs);
    xmlAttributesInsertAttribute(attrs, index, Ref(xmlAttributeCreateTextValue(name, value)));
}
void xmlAttributesInsertAttributeNameTextEscape(XML_ATTRIBUTES **attrs, int64_t index,
                                                voString *name, voString *vos) {
    VO_ASSERT_REF(attrs);
    xmlAttributesInsertAttribute(attrs, index, Ref(xmlAttributeCreateTextEscape(name, vos)));
}

void xmlAttributesPrependAttribute(XML_ATTRIBUTES **attrs, XML_ATTRIBUTE *attr) {
    xmlAttributesInsertAttribute(attrs, 0, attr);
}
void xmlAttributesPrependAttributeNameText(XML_ATTRIBUTES **attrs, voString *name, XML_TEXT *text) {
    xmlAttributesInsertAttributeNameText(attrs, 0, name, text);
}
void xmlAttributesPrependAttributeNameTextValue(XML_ATTRIBUTES **attrs, voString *name,
                                                voString *value) {
    xmlAttributesInsertAttributeNameTextValue(attrs, 0, name, value);
}
void xmlAttributesPrependAttributeNameTextEscape(XML_ATTRIBUTES **attrs, voString *name,
                                                 voString *vos) {
    xmlAttributesInsertAttributeNameTextEscape(attrs, 0, name, vos);
}

void xmlAttributesAppendAttribute(XML_ATTRIBUTES **attrs, XML_ATTRIBUTE *attr) {
    VO_ASSERT_REF(attrs);
    xmlAttributesInsertAttribute(attrs, xmlAttributesLength(*attrs), attr);
}
void xmlAttributesAppendAttributeNameText(XML_ATTRIBUTES **attrs, voString *name, XML_TEXT *text) {
    VO_ASSERT_REF(attrs);
    xmlAttributesAppendAttribute(attrs, Ref(xmlAttributeCreateText(name, text)));
}
void xmlAttributesAppendAttributeNameTextValue(XML_ATTRIBUTES **attrs, voString *name,
                                               voString *value) {
    VO_ASSERT_REF(attrs);
    xmlAttributesAppendAttribute(attrs, Ref(xmlAttributeCreateTextValue(name, value)));
}
void xmlAttributesAppendAttributeNameTextEscape(XML_ATTRIBUTES **attrs, voString *name,
                                                voString *vos) {
    VO_ASSERT_REF(attrs);
    xmlAttributesAppendAttribute(attrs, Ref(xmlAttributeCreateTextEscape(name, vos)));
}

// ---------------------------------------------------------------- by name

XML_ATTRIBUTE *xmlAttributesAttribute(XML_ATTRIBUTES *attrs, voString *name) {
    return retained(find(attrs, name));
}
XML_TEXT *xmlAttributesAttributeText(XML_ATTRIBUTES *attrs, voString *name) {
    XML_ATTRIBUTE *attr = find(attrs, name);
    return attr ? xmlAttributeText(attr) : nullptr;
}
voString *xmlAttributesAttributeTextValue(XML_ATTRIBUTES *attrs, voString *name) {
    XML_ATTRIBUTE *attr = find(attrs, name);
    return attr ? xmlAttributeTextValue(attr) : nullptr;
}
voString *xmlAttributesAttributeTextTryUnescape(XML_ATTRIBUTES *attrs, voString *name) {
    XML_ATTRIBUTE *attr = find(attrs, name);
    return attr ? xmlAttributeTextTryUnescape(attr) : nullptr;
}
int xmlAttributesHasAttribute(XML_ATTRIBUTES *attrs, voString *name) {
    return find(attrs, name) != nullptr;
}
void xmlAttributesSetAttribute(XML_ATTRIBUTES **attrs, XML_ATTRIBUTE *attr) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(attr);
    Attributes::set(VO_EDIT(attrs), attr);
}
void xmlAttributesSetAttributeNameText(XML_ATTRIBUTES **attrs, voString *name, XML_TEXT *text) {
    VO_ASSERT_REF(attrs);
    xmlAttributesSetAttribute(attrs, Ref(xmlAttributeCreateText(name, text)));
}
void xmlAttributesSetAttributeNameTextValue(XML_ATTRIBUTES **attrs, voString *name,
                                            voString *value) {
    VO_ASSERT_REF(attrs);
    xmlAttributesSetAttribute(attrs, Ref(xmlAttributeCreateTextValue(name, value)));
}
void xmlAttributesSetAttributeNameTextEscape(XML_ATTRIBUTES **attrs, voString *name,
                                             voString *vos) {
    VO_ASSERT_REF(attrs);
    xmlAttributesSetAttribute(attrs, Ref(xmlAttributeCreateTextEscape(name, vos)));
}
void xmlAttributesDelAttribute(XML_ATTRIBUTES **attrs, voString *name) {
    VO_ASSERT_REF(attrs);
    VO_ASSERT(xmlValueNameOk( name ));
    int64_t index = Attributes::indexOf(*attrs, {name, nullptr});
    if (index >= 0) xmlAttributesDelAttributeAt(attrs, index);
}
