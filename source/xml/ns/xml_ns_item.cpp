#include "xml/xml_ns_item.h"

#include "source/xml/base/xml_item_content.hpp"
#include "source/xml/base/xml_object.hpp"
#include "source/xml/ns/xml_ns_item.hpp"
#include "xml/xml_ns_element.h"

using vo::Ref;
using vo::retained;
using xml::held;

XML_OBJECT(NsItem, XML_NS_ITEM, item);

XML_NS_ITEM *xml___NsItemCreate(XML_ITEM_TYPE type, voObj *obj) {
    VO_ASSERT(obj);
    return xml::createItem<XML_NS_ITEM>(xmlNsItemSort(), type, obj);
}

XML_NS_ITEM *xmlNsItemCreateElement(XML_NS_ELEMENT *el) {
    return xml___NsItemCreate(XML_ITEM_TYPE_ELEMENT, xmlNsElementObj(el));
}
XML_NS_ITEM *xmlNsItemCreateProcessingInstruction(XML_PROCESSING_INSTRUCTION *pi) {
    return xml___NsItemCreate(XML_ITEM_TYPE_PROCESSING_INSTRUCTION,
                              xmlProcessingInstructionObj(pi));
}
XML_NS_ITEM *xmlNsItemCreateComment(XML_COMMENT *comment) {
    return xml___NsItemCreate(XML_ITEM_TYPE_COMMENT, xmlCommentObj(comment));
}
XML_NS_ITEM *xmlNsItemCreateText(XML_TEXT *text) {
    return xml___NsItemCreate(XML_ITEM_TYPE_TEXT, xmlTextObj(text));
}
XML_NS_ITEM *xmlNsItemCreateTextValue(voString *value) {
    return xmlNsItemCreateText(Ref(xmlTextCreateValue(value)));
}
XML_NS_ITEM *xmlNsItemCreateTextEscape(voString *vos) {
    return xmlNsItemCreateText(Ref(xmlTextCreateEscape(vos)));
}
XML_NS_ITEM *xmlNsItemCreateCdata(XML_CDATA *cdata) {
    return xml___NsItemCreate(XML_ITEM_TYPE_CDATA, xmlCdataObj(cdata));
}

XML_ITEM_TYPE xmlNsItemType(XML_NS_ITEM *item) { return VO_READ(item)->type(); }
int xmlNsItemIsElement(XML_NS_ITEM *item) { return VO_READ(item)->type() == XML_ITEM_TYPE_ELEMENT; }
int xmlNsItemIsProcessingInstruction(XML_NS_ITEM *item) {
    return VO_READ(item)->type() == XML_ITEM_TYPE_PROCESSING_INSTRUCTION;
}
int xmlNsItemIsComment(XML_NS_ITEM *item) { return VO_READ(item)->type() == XML_ITEM_TYPE_COMMENT; }
int xmlNsItemIsText(XML_NS_ITEM *item) { return VO_READ(item)->type() == XML_ITEM_TYPE_TEXT; }
int xmlNsItemIsCdata(XML_NS_ITEM *item) { return VO_READ(item)->type() == XML_ITEM_TYPE_CDATA; }

XML_NS_ELEMENT *xmlNsItemElement(XML_NS_ITEM *item) {
    return retained(held<XML_NS_ELEMENT>(VO_READ(item), XML_ITEM_TYPE_ELEMENT));
}
XML_PROCESSING_INSTRUCTION *xmlNsItemProcessingInstruction(XML_NS_ITEM *item) {
    return retained(
        held<XML_PROCESSING_INSTRUCTION>(VO_READ(item), XML_ITEM_TYPE_PROCESSING_INSTRUCTION));
}
XML_COMMENT *xmlNsItemComment(XML_NS_ITEM *item) {
    return retained(held<XML_COMMENT>(VO_READ(item), XML_ITEM_TYPE_COMMENT));
}
XML_TEXT *xmlNsItemText(XML_NS_ITEM *item) {
    return retained(held<XML_TEXT>(VO_READ(item), XML_ITEM_TYPE_TEXT));
}
voString *xmlNsItemTextValue(XML_NS_ITEM *item) {
    auto *text = held<XML_TEXT>(VO_READ(item), XML_ITEM_TYPE_TEXT);
    return text ? xmlTextValue(text) : nullptr;
}
voString *xmlNsItemTextTryUnescape(XML_NS_ITEM *item) {
    auto *text = held<XML_TEXT>(VO_READ(item), XML_ITEM_TYPE_TEXT);
    return text ? xmlTextTryUnescape(text) : nullptr;
}
XML_CDATA *xmlNsItemCdata(XML_NS_ITEM *item) {
    return retained(held<XML_CDATA>(VO_READ(item), XML_ITEM_TYPE_CDATA));
}

void xmlNsItemSetElement(XML_NS_ITEM **item, XML_NS_ELEMENT *el) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlNsItemCreateElement(el));
}
void xmlNsItemSetProcessingInstruction(XML_NS_ITEM **item, XML_PROCESSING_INSTRUCTION *pi) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlNsItemCreateProcessingInstruction(pi));
}
void xmlNsItemSetComment(XML_NS_ITEM **item, XML_COMMENT *comment) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlNsItemCreateComment(comment));
}
void xmlNsItemSetText(XML_NS_ITEM **item, XML_TEXT *text) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlNsItemCreateText(text));
}
void xmlNsItemSetTextValue(XML_NS_ITEM **item, voString *value) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlNsItemCreateTextValue(value));
}
void xmlNsItemSetTextEscape(XML_NS_ITEM **item, voString *vos) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlNsItemCreateTextEscape(vos));
}
void xmlNsItemSetCdata(XML_NS_ITEM **item, XML_CDATA *cdata) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlNsItemCreateCdata(cdata));
}
