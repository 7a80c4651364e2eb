#include "xml/xml_item.h"

#include "source/xml/base/xml_item.hpp"
#include "source/xml/base/xml_item_content.hpp"
#include "source/xml/base/xml_object.hpp"
#include "xml/xml_element.h"

using vo::Ref;
using vo::retained;
using xml::held;

XML_OBJECT(Item, XML_ITEM, item);

XML_ITEM *xml___ItemCreate(XML_ITEM_TYPE type, voObj *obj) {
    VO_ASSERT(obj);
    return xml::createItem<XML_ITEM>(xmlItemSort(), type, obj);
}

XML_ITEM *xmlItemCreateElement(XML_ELEMENT *el) {
    return xml___ItemCreate(XML_ITEM_TYPE_ELEMENT, xmlElementObj(el));
}
XML_ITEM *xmlItemCreateProcessingInstruction(XML_PROCESSING_INSTRUCTION *pi) {
    return xml___ItemCreate(XML_ITEM_TYPE_PROCESSING_INSTRUCTION, xmlProcessingInstructionObj(pi));
}
XML_ITEM *xmlItemCreateComment(XML_COMMENT *comment) {
    return xml___ItemCreate(XML_ITEM_TYPE_COMMENT, xmlCommentObj(comment));
}
XML_ITEM *xmlItemCreateText(XML_TEXT *text) {
    return xml___ItemCreate(XML_ITEM_TYPE_TEXT, xmlTextObj(text));
}
XML_ITEM *xmlItemCreateTextValue(voString *value) {
    return xmlItemCreateText(Ref(xmlTextCreateValue(value)));
}
XML_ITEM *xmlItemCreateTextEscape(voString *vos) {
    return xmlItemCreateText(Ref(xmlTextCreateEscape(vos)));
}
XML_ITEM *xmlItemCreateCdata(XML_CDATA *cdata) {
    return xml___ItemCreate(XML_ITEM_TYPE_CDATA, xmlCdataObj(cdata));
}

XML_ITEM_TYPE xmlItemType(XML_ITEM *item) { return VO_READ(item)->type(); }
int xmlItemIsElement(XML_ITEM *item) { return VO_READ(item)->type() == XML_ITEM_TYPE_ELEMENT; }
int xmlItemIsProcessingInstruction(XML_ITEM *item) {
    return VO_READ(item)->type() == XML_ITEM_TYPE_PROCESSING_INSTRUCTION;
}
int xmlItemIsComment(XML_ITEM *item) { return VO_READ(item)->type() == XML_ITEM_TYPE_COMMENT; }
int xmlItemIsText(XML_ITEM *item) { return VO_READ(item)->type() == XML_ITEM_TYPE_TEXT; }
int xmlItemIsCdata(XML_ITEM *item) { return VO_READ(item)->type() == XML_ITEM_TYPE_CDATA; }

XML_ELEMENT *xmlItemElement(XML_ITEM *item) {
    return retained(held<XML_ELEMENT>(VO_READ(item), XML_ITEM_TYPE_ELEMENT));
}
XML_PROCESSING_INSTRUCTION *xmlItemProcessingInstruction(XML_ITEM *item) {
    return retained(
        held<XML_PROCESSING_INSTRUCTION>(VO_READ(item), XML_ITEM_TYPE_PROCESSING_INSTRUCTION));
}
XML_COMMENT *xmlItemComment(XML_ITEM *item) {
    return retained(held<XML_COMMENT>(VO_READ(item), XML_ITEM_TYPE_COMMENT));
}
XML_TEXT *xmlItemText(XML_ITEM *item) {
    return retained(held<XML_TEXT>(VO_READ(item), XML_ITEM_TYPE_TEXT));
}
voString *xmlItemTextValue(XML_ITEM *item) {
    auto *text = held<XML_TEXT>(VO_READ(item), XML_ITEM_TYPE_TEXT);
    return text ? xmlTextValue(text) : nullptr;
}
voString *xmlItemTextTryUnescape(XML_ITEM *item) {
    auto *text = held<XML_TEXT>(VO_READ(item), XML_ITEM_TYPE_TEXT);
    return text ? xmlTextTryUnescape(text) : nullptr;
}
XML_CDATA *xmlItemCdata(XML_ITEM *item) {
    return retained(held<XML_CDATA>(VO_READ(item), XML_ITEM_TYPE_CDATA));
}

void xmlItemSetElement(XML_ITEM **item, XML_ELEMENT *el) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlItemCreateElement(el));
}
void xmlItemSetProcessingInstruction(XML_ITEM **item, XML_PROCESSING_INSTRUCTION *pi) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlItemCreateProcessingInstruction(pi));
}
void xmlItemSetComment(XML_ITEM **item, XML_COMMENT *comment) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlItemCreateComment(comment));
}
void xmlItemSetText(XML_ITEM **item, XML_TEXT *text) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlItemCreateText(text));
}
void xmlItemSetTextValue(XML_ITEM **item, voString *value) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlItemCreateTextValue(value));
}
void xmlItemSetTextEscape(XML_ITEM **item, voString *vos) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlItemCreateTextEscape(vos));
}
void xmlItemSetCdata(XML_ITEM **item, XML_CDATA *cdata) {
    VO_ASSERT_REF(item);
    xml::replace(item, xmlItemCreateCdata(cdata));
}
