#include "xml/xml_element.h"

#include "source/xml/base/xml_element.hpp"
#include "source/xml/base/xml_item.hpp"
#include "source/xml/base/xml_items.hpp"
#include "source/xml/base/xml_object.hpp"
#include "xml/xml_value.h"

using vo::assign;
using vo::Ref;
using vo::retained;

XML_OBJECT(Element, XML_ELEMENT, el);
XML_LOCATION(Element, XML_ELEMENT, el);

XML_ELEMENT *xmlElementCreate(voString *name) {
    VO_ASSERT(xmlValueNameOk( name ));
    auto *el = vo::create<XML_ELEMENT>(xmlElementSort());
    el->name = retained(name);
    el->attributes = xmlAttributesCreate();
    el->items = xmlItemsCreate();
    return el;
}

voString *xmlElementName(XML_ELEMENT *el) { return retained(VO_READ(el)->name); }
void xmlElementSetName(XML_ELEMENT **el, voString *name) {
    VO_ASSERT_REF(el);
    VO_ASSERT(xmlValueNameOk( name ));
    assign(VO_EDIT(el)->name, name);
}

XML_ATTRIBUTES *xmlElementAttributes(XML_ELEMENT *el) { return retained(VO_READ(el)->attributes); }
void xmlElementSetAttributes(XML_ELEMENT **el, XML_ATTRIBUTES *attrs) {
    VO_ASSERT_REF(el);
    VO_ASSERT(attrs);
    assign(VO_EDIT(el)->attributes, attrs);
}

XML_ITEMS *xmlElementItems(XML_ELEMENT *el) { return retained(VO_READ(el)->items); }
void xmlElementSetItems(XML_ELEMENT **el, XML_ITEMS *items) {
    VO_ASSERT_REF(el);
    VO_ASSERT(items);
    assign(VO_EDIT(el)->items, items);
}
void xmlElementMakeAll(XML_ELEMENT *el) { xml::makeAll<XML_ITEM, XML_ELEMENT>(VO_READ(el)->items); }

// ---------------------------------------------------------------- attributes

int64_t xmlElementAttributesLength(XML_ELEMENT *el) {
    return xmlAttributesLength(VO_READ(el)->attributes);
}
XML_ATTRIBUTE *xmlElementAttributeAt(XML_ELEMENT *el, int64_t index) {
    return xmlAttributesAttributeAt(VO_READ(el)->attributes, index);
}
voString *xmlElementAttributeNameAt(XML_ELEMENT *el, int64_t index) {
    return xmlAttributesAttributeNameAt(VO_READ(el)->attributes, index);
}
XML_TEXT *xmlElementAttributeTextAt(XML_ELEMENT *el, int64_t index) {
    return xmlAttributesAttributeTextAt(VO_READ(el)->attributes, index);
}
voString *xmlElementAttributeTextValueAt(XML_ELEMENT *el, int64_t index) {
    return xmlAttributesAttributeTextValueAt(VO_READ(el)->attributes, index);
}
voString *xmlElementAttributeTextTryUnescapeAt(XML_ELEMENT *el, int64_t index) {
    return xmlAttributesAttributeTextTryUnescapeAt(VO_READ(el)->attributes, index);
}
XML_ATTRIBUTE *xmlElementAttribute(XML_ELEMENT *el, voString *name) {
    return xmlAttributesAttribute(VO_READ(el)->attributes, name);
}
XML_TEXT *xmlElementAttributeText(XML_ELEMENT *el, voString *name) {
    return xmlAttributesAttributeText(VO_READ(el)->attributes, name);
}
voString *xmlElementAttributeTextValue(XML_ELEMENT *el, voString *name) {
    return xmlAttributesAttributeTextValue(VO_READ(el)->attributes, name);
}
voString *xmlElementAttributeTextTryUnescape(XML_ELEMENT *el, voString *name) {
    return xmlAttributesAttributeTextTryUnescape(VO_READ(el)->attributes, name);
}
int xmlElementHasAttribute(XML_ELEMENT *el, voString *name) {
    return xmlAttributesHasAttribute(VO_READ(el)->attributes, name);
}

void xmlElementAttributesClear(XML_ELEMENT **el) { xmlAttributesClear(&VO_EDIT(el)->attributes); }
void xmlElementSetAttributeAt(XML_ELEMENT **el, int64_t index, XML_ATTRIBUTE *attr) {
    xmlAttributesSetAttributeAt(&VO_EDIT(el)->attributes, index, attr);
}
void xmlElementSetAttributeNameAt(XML_ELEMENT **el, int64_t index, voString *name) {
    xmlAttributesSetAttributeNameAt(&VO_EDIT(el)->attributes, index, name);
}
void xmlElementSetAttributeTextAt(XML_ELEMENT **el, int64_t index, XML_TEXT *text) {
    xmlAttributesSetAttributeTextAt(&VO_EDIT(el)->attributes, index, text);
}
void xmlElementSetAttributeTextValueAt(XML_ELEMENT **el, int64_t index, voString *value) {
    xmlAttributesSetAttributeTextValueAt(&VO_EDIT(el)->attributes, index, value);
}
void xmlElementSetAttributeTextEscapeAt(XML_ELEMENT **el, int64_t index, voString *vos) {
    xmlAttributesSetAttributeTextEscapeAt(&VO_EDIT(el)->attributes, index, vos);
}
void xmlElementSetAttributeNameTextAt(XML_ELEMENT **el, int64_t index, voString *name,
                                      XML_TEXT *text) {
    xmlAttributesSetAttributeNameTextAt(&VO_EDIT(el)->attributes, index, name, text);
}
void xmlElementSetAttributeNameTextValueAt(XML_ELEMENT **el, int64_t index, voString *name,
                                           voString *value) {
    xmlAttributesSetAttributeNameTextValueAt(&VO_EDIT(el)->attributes, index, name, value);
}
void xmlElementSetAttributeNameTextEscapeAt(XML_ELEMENT **el, int64_t index, voString *name,
                                            voString *vos) {
    xmlAttributesSetAttributeNameTextEscapeAt(&VO_EDIT(el)->attributes, index, name, vos);
}
void xmlElementDelAttributeAt(XML_ELEMENT **el, int64_t index) {
    xmlAttributesDelAttributeAt(&VO_EDIT(el)->attributes, index);
}

void xmlElementInsertAttributes(XML_ELEMENT **el, int64_t index, XML_ATTRIBUTES *others) {
    xmlAttributesInsert(&VO_EDIT(el)->attributes, index, others);
}
void xmlElementInsertAttribute(XML_ELEMENT **el, int64_t index, XML_ATTRIBUTE *attr) {
    xmlAttributesInsertAttribute(&VO_EDIT(el)->attributes, index, attr);
}
void xmlElementInsertAttributeNameText(XML_ELEMENT **el, int64_t index, voString *name,
                                       XML_TEXT *text) {
    xmlAttributesInsertAttributeNameText(&VO_EDIT(el)->attributes, index, name, text);
}
void xmlElementInsertAttributeNameTextValue(XML_ELEMENT **el, int64_t index, voString *name,
                                            voString *value) {
    xmlAttributesInsertAttributeNameTextValue(&VO_EDIT(el)->attributes, index, name, value);
}
void xmlElementInsertAttributeNameTextEscape(XML_ELEMENT **el, int64_t index, voString *name,
                                             voString *vos) {
    xmlAttributesInsertAttributeNameTextEscape(&VO_EDIT(el)->attributes, index, name, vos);
}

void xmlElementPrependAttributes(XML_ELEMENT **el, XML_ATTRIBUTES *others) {
    xmlAttributesPrepend(&VO_EDIT(el)->attributes, others);
}
void xmlElementPrependAttribute(XML_ELEMENT **el, XML_ATTRIBUTE *attr) {
    xmlAttributesPrependAttribute(&VO_EDIT(el)->attributes, attr);
}
void xmlElementPrependAttributeNameText(XML_ELEMENT **el, voString *name, XML_TEXT *text) {
    xmlAttributesPrependAttributeNameText(&VO_EDIT(el)->attributes, name, text);
}
void xmlElementPrependAttributeNameTextValue(XML_ELEMENT **el, voString *name, voString *value) {
    xmlAttributesPrependAttributeNameTextValue(&VO_EDIT(el)->attributes, name, value);
}
void xmlElementPrependAttributeNameTextEscape(XML_ELEMENT **el, voString *name, voString *vos) {
    xmlAttributesPrependAttributeNameTextEscape(&VO_EDIT(el)->attributes, name, vos);
}

void xmlElementAppendAttributes(XML_ELEMENT **el, XML_ATTRIBUTES *others) {
    xmlAttributesAppend(&VO_EDIT(el)->attributes, others);
}
void xmlElementAppendAttribute(XML_ELEMENT **el, XML_ATTRIBUTE *attr) {
    xmlAttributesAppendAttribute(&VO_EDIT(el)->attributes, attr);
}
void xmlElementAppendAttributeNameText(XML_ELEMENT **el, voString *name, XML_TEXT *text) {
    xmlAttributesAppendAttributeNameText(&VO_EDIT(el)->attributes, name, text);
}
void xmlElementAppendAttributeNameTextValue(XML_ELEMENT **el, voString *name, voString *value) {
    xmlAttributesAppendAttributeNameTextValue(&VO_EDIT(el)->attributes, name, value);
}
void xmlElementAppendAttributeNameTextEscape(XML_ELEMENT **el, voString *name, voString *vos) {
    xmlAttributesAppendAttributeNameTextEscape(&VO_EDIT(el)->attributes, name, vos);
}

void xmlElementSetAttribute(XML_ELEMENT **el, XML_ATTRIBUTE *attr) {
    xmlAttributesSetAttribute(&VO_EDIT(el)->attributes, attr);
}
void xmlElementSetAttributeNameText(XML_ELEMENT **el, voString *name, XML_TEXT *text) {
    xmlAttributesSetAttributeNameText(&VO_EDIT(el)->attributes, name, text);
}
void xmlElementSetAttributeNameTextValue(XML_ELEMENT **el, voString *name, voString *value) {
    xmlAttributesSetAttributeNameTextValue(&VO_EDIT(el)->attributes, name, value);
}
void xmlElementSetAttributeNameTextEscape(XML_ELEMENT **el, voString *name, voString *vos) {
    xmlAttributesSetAttributeNameTextEscape(&VO_EDIT(el)->attributes, name, vos);
}
void xmlElementDelAttribute(XML_ELEMENT **el, voString *name) {
    xmlAttributesDelAttribute(&VO_EDIT(el)->attributes, name);
}

// ---------------------------------------------------------------- children

int64_t xmlElementItemsLength(XML_ELEMENT *el) { return xmlItemsLength(VO_READ(el)->items); }
XML_ITEM *xmlElementItemAt(XML_ELEMENT *el, int64_t index) {
    return xmlItemsItemAt(VO_READ(el)->items, index);
}
XML_ITEM_TYPE xmlElementItemTypeAt(XML_ELEMENT *el, int64_t index) {
    return xmlItemsItemTypeAt(VO_READ(el)->items, index);
}
XML_ELEMENT *xmlElementItemElementAt(XML_ELEMENT *el, int64_t index) {
    return xmlItemsItemElementAt(VO_READ(el)->items, index);
}
XML_PROCESSING_INSTRUCTION *xmlElementItemProcessingInstructionAt(XML_ELEMENT *el, int64_t index) {
    return xmlItemsItemProcessingInstructionAt(VO_READ(el)->items, index);
}
XML_COMMENT *xmlElementItemCommentAt(XML_ELEMENT *el, int64_t index) {
    return xmlItemsItemCommentAt(VO_READ(el)->items, index);
}
XML_TEXT *xmlElementItemTextAt(XML_ELEMENT *el, int64_t index) {
    return xmlItemsItemTextAt(VO_READ(el)->items, index);
}
voString *xmlElementItemTextValueAt(XML_ELEMENT *el, int64_t index) {
    return xmlItemsItemTextValueAt(VO_READ(el)->items, index);
}
voString *xmlElementItemTextTryUnescapeAt(XML_ELEMENT *el, int64_t index) {
    return xmlItemsItemTextTryUnescapeAt(VO_READ(el)->items, index);
}
XML_CDATA *xmlElementItemCdataAt(XML_ELEMENT *el, int64_t index) {
    return xmlItemsItemCdataAt(VO_READ(el)->items, index);
}

void xmlElementItemsClear(XML_ELEMENT **el) { xmlItemsClear(&VO_EDIT(el)->items); }
void xmlElementSetItemAt(XML_ELEMENT **el, int64_t index, XML_ITEM *item) {
    xmlItemsSetItemAt(&VO_EDIT(el)->items, index, item);
}
void xmlElementSetItemElementAt(XML_ELEMENT **el, int64_t index, XML_ELEMENT *child) {
    Ref kept(retained(child)); // `child` may be the element itself
    xmlItemsSetItemElementAt(&VO_EDIT(el)->items, index, child);
}
void xmlElementSetItemProcessingInstructionAt(XML_ELEMENT **el, int64_t index,
                                              XML_PROCESSING_INSTRUCTION *pi) {
    xmlItemsSetItemProcessingInstructionAt(&VO_EDIT(el)->items, index, pi);
}
void xmlElementSetItemCommentAt(XML_ELEMENT **el, int64_t index, XML_COMMENT *comment) {
    xmlItemsSetItemCommentAt(&VO_EDIT(el)->items, index, comment);
}
void xmlElementSetItemTextAt(XML_ELEMENT **el, int64_t index, XML_TEXT *text) {
    xmlItemsSetItemTextAt(&VO_EDIT(el)->items, index, text);
}
void xmlElementSetItemTextValueAt(XML_ELEMENT **el, int64_t index, voString *value) {
    xmlItemsSetItemTextValueAt(&VO_EDIT(el)->items, index, value);
}
void xmlElementSetItemTextEscapeAt(XML_ELEMENT **el, int64_t index, voString *vos) {
    xmlItemsSetItemTextEscapeAt(&VO_EDIT(el)->items, index, vos);
}

void xmlElementSetItemCdatdaAt(XML_ELEMENT **el, int64_t index, XML_CDATA *cdata) {
    xmlItemsSetItemCdataAt(&VO_EDIT(el)->items, index, cdata);
}
void xmlElementDelItemAt(XML_ELEMENT **el, int64_t index) {
    xmlItemsDelItemAt(&VO_EDIT(el)->items, index);
}

void xmlElementInsertItems(XML_ELEMENT **el, int64_t index, XML_ITEMS *source) {
    xmlItemsInsert(&VO_EDIT(el)->items, index, source);
}
void xmlElementInsertItem(XML_ELEMENT **el, int64_t index, XML_ITEM *item) {
    xmlItemsInsertItem(&VO_EDIT(el)->items, index, item);
}
void xmlElementInsertItemElement(XML_ELEMENT **el, int64_t index, XML_ELEMENT *child) {
    Ref kept(retained(child)); // `child` may be the element itself
    xmlItemsInsertItemElement(&VO_EDIT(el)->items, index, child);
}
void xmlElementInsertItemProcessingInstruction(XML_ELEMENT **el, int64_t index,
                                               XML_PROCESSING_INSTRUCTION *pi) {
    xmlItemsInsertItemProcessingInstruction(&VO_EDIT(el)->items, index, pi);
}
void xmlElementInsertItemComment(XML_ELEMENT **el, int64_t index, XML_COMMENT *comment) {
    xmlItemsInsertItemComment(&VO_EDIT(el)->items, index, comment);
}
void xmlElementInsertItemText(XML_ELEMENT **el, int64_t index, XML_TEXT *text) {
    xmlItemsInsertItemText(&VO_EDIT(el)->items, index, text);
}
void xmlElementInsertItemTextValue(XML_ELEMENT **el, int64_t index, voString *value) {
    xmlItemsInsertItemTextValue(&VO_EDIT(el)->items, index, value);
}
void xmlElementInsertItemTextEscape(XML_ELEMENT **el, int64_t index, voString *vos) {
    xmlItemsInsertItemTextEscape(&VO_EDIT(el)->items, index, vos);
}
void xmlElementInsertItemCdata(XML_ELEMENT **el, int64_t index, XML_CDATA *cdata) {
    xmlItemsInsertItemCdata(&VO_EDIT(el)->items, index, cdata);
}

void xmlElementPrependItems(XML_ELEMENT **el, XML_ITEMS *source) {
    xmlItemsPrepend(&VO_EDIT(el)->items, source);
}
void xmlElementPrependItem(XML_ELEMENT **el, XML_ITEM *item) {
    xmlItemsPrependItem(&VO_EDIT(el)->items, item);
}
void xmlElementPrependItemElement(XML_ELEMENT **el, XML_ELEMENT *child) {
    Ref kept(retained(child)); // `child` may be the element itself
    xmlItemsPrependItemElement(&VO_EDIT(el)->items, child);
}
void xmlElementPrependItemProcessingInstruction(XML_ELEMENT **el, XML_PROCESSING_INSTRUCTION *pi) {
    xmlItemsPrependItemProcessingInstruction(&VO_EDIT(el)->items, pi);
}
void xmlElementPrependItemComment(XML_ELEMENT **el, XML_COMMENT *comment) {
    xmlItemsPrependItemComment(&VO_EDIT(el)->items, comment);
}
void xmlElementPrependItemText(XML_ELEMENT **el, XML_TEXT *text) {
    xmlItemsPrependItemText(&VO_EDIT(el)->items, text);
}
void xmlElementPrependItemTextValue(XML_ELEMENT **el, voString *value) {
    xmlItemsPrependItemTextValue(&VO_EDIT(el)->items, value);
}
void xmlElementPrependItemTextEscape(XML_ELEMENT **el, voString *vos) {
    xmlItemsPrependItemTextEscape(&VO_EDIT(el)->items, vos);
}
void xmlElementPrependItemCdata(XML_ELEMENT **el, XML_CDATA *cdata) {
    xmlItemsPrependItemCdata(&VO_EDIT(el)->items, cdata);
}

void xmlElementAppendItems(XML_ELEMENT **el, XML_ITEMS *source) {
    xmlItemsAppend(&VO_EDIT(el)->items, source);
}
void xmlElementAppendItem(XML_ELEMENT **el, XML_ITEM *item) {
    xmlItemsAppendItem(&VO_EDIT(el)->items, item);
}
void xmlElementAppendItemElement(XML_ELEMENT **el, XML_ELEMENT *child) {
    Ref kept(retained(child)); // `child` may be the element itself
    xmlItemsAppendItemElement(&VO_EDIT(el)->items, child);
}
void xmlElementAppendItemProcessingInstruction(XML_ELEMENT **el, XML_PROCESSING_INSTRUCTION *pi) {
    xmlItemsAppendItemProcessingInstruction(&VO_EDIT(el)->items, pi);
}
void xmlElementAppendItemComment(XML_ELEMENT **el, XML_COMMENT *comment) {
    xmlItemsAppendItemComment(&VO_EDIT(el)->items, comment);
}
void xmlElementAppendItemText(XML_ELEMENT **el, XML_TEXT *text) {
    xmlItemsAppendItemText(&VO_EDIT(el)->items, text);
}
void xmlElementAppendItemTextValue(XML_ELEMENT **el, voString *value) {
    xmlItemsAppendItemTextValue(&VO_EDIT(el)->items, value);
}
void xmlElementAppendItemTextEscape(XML_ELEMENT **el, voString *vos) {
    xmlItemsAppendItemTextEscape(&VO_EDIT(el)->items, vos);
}
void xmlElementAppendItemCdata(XML_ELEMENT **el, XML_CDATA *cdata) {
    xmlItemsAppendItemCdata(&VO_EDIT(el)->items, cdata);
}
