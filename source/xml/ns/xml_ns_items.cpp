#include "xml/xml_ns_items.h"

#include "source/xml/base/xml_object.hpp"
#include "source/xml/ns/xml_ns_items.hpp"

using vo::Ref;
using vo::retained;
using xml::VectorEdit;
using xml::vectorOf;

XML_OBJECT(NsItems, XML_NS_ITEMS, items);

// ---------------------------------------------------------------- the whole list

XML_NS_ITEMS *xmlNsItemsCreate(void) {
    auto *items = vo::create<XML_NS_ITEMS>(xmlNsItemsSort());
    items->itemsVector.set(voVectorCreate());
    return items;
}
int64_t xmlNsItemsLength(XML_NS_ITEMS *items) { return voVectorLength(vectorOf(VO_READ(items))); }
void xmlNsItemsClear(XML_NS_ITEMS **items) {
    VO_ASSERT_REF(items);
    xmlNsItemsSetItemsVector(items, Ref(voVectorCreate()));
}
voVector *xmlNsItemsItemsVector(XML_NS_ITEMS *items) { return retained(vectorOf(VO_READ(items))); }
void xmlNsItemsSetItemsVector(XML_NS_ITEMS **items, voVector *vec) {
    VO_ASSERT_REF(items);
    VO_ASSERT(voVectorContainsOnly( vec, xmlNsItemSort() ));
    if (!vo::isSole(*items)) xml::replace(items, xmlNsItemsCreate()); // a copy would be made first
    (*items)->itemsVector.replace(retained(vec));
}
void xmlNsItemsInsert(XML_NS_ITEMS **items, int64_t index, XML_NS_ITEMS *source) {
    VO_ASSERT_REF(items);
    VO_ASSERT(source);
    Ref kept(retained(source)); // `source` may be the list itself
    voVectorInsert(VectorEdit(VO_EDIT(items)), index, vectorOf(source));
}
void xmlNsItemsPrepend(XML_NS_ITEMS **items, XML_NS_ITEMS *source) {
    xmlNsItemsInsert(items, 0, source);
}
void xmlNsItemsAppend(XML_NS_ITEMS **items, XML_NS_ITEMS *source) {
    VO_ASSERT_REF(items);
    xmlNsItemsInsert(items, xmlNsItemsLength(*items), source);
}

// ---------------------------------------------------------------- items

XML_NS_ITEM *xmlNsItemsItemAt(XML_NS_ITEMS *items, int64_t index) {
    return xmlNsItemFrom(voVectorObjAt(vectorOf(VO_READ(items)), index));
}
void xmlNsItemsSetItemAt(XML_NS_ITEMS **items, int64_t index, XML_NS_ITEM *item) {
    VO_ASSERT_REF(items);
    VO_ASSERT(item);
    voVectorSetObjAt(VectorEdit(VO_EDIT(items)), index, xmlNsItemObj(item));
}
void xmlNsItemsDelItemAt(XML_NS_ITEMS **items, int64_t index) {
    voVectorDelAt(VectorEdit(VO_EDIT(items)), index);
}
void xmlNsItemsInsertItem(XML_NS_ITEMS **items, int64_t index, XML_NS_ITEM *item) {
    VO_ASSERT_REF(items);
    VO_ASSERT(item);
    voVectorInsertObj(VectorEdit(VO_EDIT(items)), index, xmlNsItemObj(item));
}
void xmlNsItemsPrependItem(XML_NS_ITEMS **items, XML_NS_ITEM *item) {
    xmlNsItemsInsertItem(items, 0, item);
}
void xmlNsItemsAppendItem(XML_NS_ITEMS **items, XML_NS_ITEM *item) {
    VO_ASSERT_REF(items);
    xmlNsItemsInsertItem(items, xmlNsItemsLength(*items), item);
}

// ---------------------------------------------------------------- what an item holds

XML_ITEM_TYPE xmlNsItemsItemTypeAt(XML_NS_ITEMS *items, int64_t index) {
    return xmlNsItemType(Ref(xmlNsItemsItemAt(items, index)));
}
XML_NS_ELEMENT *xmlNsItemsItemElementAt(XML_NS_ITEMS *items, int64_t index) {
    return xmlNsItemElement(Ref(xmlNsItemsItemAt(items, index)));
}
XML_PROCESSING_INSTRUCTION *xmlNsItemsItemProcessingInstructionAt(XML_NS_ITEMS *items,
                                                                  int64_t index) {
    return xmlNsItemProcessingInstruction(Ref(xmlNsItemsItemAt(items, index)));
}
XML_COMMENT *xmlNsItemsItemCommentAt(XML_NS_ITEMS *items, int64_t index) {
    return xmlNsItemComment(Ref(xmlNsItemsItemAt(items, index)));
}
XML_TEXT *xmlNsItemsItemTextAt(XML_NS_ITEMS *items, int64_t index) {
    return xmlNsItemText(Ref(xmlNsItemsItemAt(items, index)));
}
voString *xmlNsItemsItemTextValueAt(XML_NS_ITEMS *items, int64_t index) {
    return xmlNsItemTextValue(Ref(xmlNsItemsItemAt(items, index)));
}
voString *xmlNsItemsItemTextTryUnescapeAt(XML_NS_ITEMS *items, int64_t index) {
    return xmlNsItemTextTryUnescape(Ref(xmlNsItemsItemAt(items, index)));
}
XML_CDATA *xmlNsItemsItemCdataAt(XML_NS_ITEMS *items, int64_t index) {
    return xmlNsItemCdata(Ref(xmlNsItemsItemAt(items, index)));
}

// ---------------------------------------------------------------- replacing by index

void xmlNsItemsSetItemElementAt(XML_NS_ITEMS **items, int64_t index, XML_NS_ELEMENT *el) {
    VO_ASSERT_REF(items);
    xmlNsItemsSetItemAt(items, index, Ref(xmlNsItemCreateElement(el)));
}
void xmlNsItemsSetItemProcessingInstructionAt(XML_NS_ITEMS **items, int64_t index,
                                              XML_PROCESSING_INSTRUCTION *pi) {
    VO_ASSERT_REF(items);
    xmlNsItemsSetItemAt(items, index, Ref(xmlNsItemCreateProcessingInstruction(pi)));
}
void xmlNsItemsSetItemCommentAt(XML_NS_ITEMS **items, int64_t index, XML_COMMENT *comment) {
    VO_ASSERT_REF(items);
    xmlNsItemsSetItemAt(items, index, Ref(xmlNsItemCreateComment(comment)));
}
void xmlNsItemsSetItemTextAt(XML_NS_ITEMS **items, int64_t index, XML_TEXT *text) {
    VO_ASSERT_REF(items);
    xmlNsItemsSetItemAt(items, index, Ref(xmlNsItemCreateText(text)));
}
void xmlNsItemsSetItemTextValueAt(XML_NS_ITEMS **items, int64_t index, voString *value) {
    VO_ASSERT_REF(items);
    xmlNsItemsSetItemAt(items, index, Ref(xmlNsItemCreateTextValue(value)));
}
void xmlNsItemsSetItemTextEscapeAt(XML_NS_ITEMS **items, int64_t index, voString *vos) {
    VO_ASSERT_REF(items);
    xmlNsItemsSetItemAt(items, index, Ref(xmlNsItemCreateTextEscape(vos)));
}
void xmlNsItemsSetItemCdataAt(XML_NS_ITEMS **items, int64_t index, XML_CDATA *cdata) {
    VO_ASSERT_REF(items);
    xmlNsItemsSetItemAt(items, index, Ref(xmlNsItemCreateCdata(cdata)));
}

// ---------------------------------------------------------------- inserting

void xmlNsItemsInsertItemElement(XML_NS_ITEMS **items, int64_t index, XML_NS_ELEMENT *el) {
    VO_ASSERT_REF(items);
    xmlNsItemsInsertItem(items, index, Ref(xmlNsItemCreateElement(el)));
}
void xmlNsItemsInsertItemProcessingInstruction(XML_NS_ITEMS **items, int64_t index,
                                               XML_PROCESSING_INSTRUCTION *pi) {
    VO_ASSERT_REF(items);
    xmlNsItemsInsertItem(items, index, Ref(xmlNsItemCreateProcessingInstruction(pi)));
}
void xmlNsItemsInsertItemComment(XML_NS_ITEMS **items, int64_t index, XML_COMMENT *comment) {
    VO_ASSERT_REF(items);
    xmlNsItemsInsertItem(items, index, Ref(xmlNsItemCreateComment(comment)));
}
void xmlNsItemsInsertItemText(XML_NS_ITEMS **items, int64_t index, XML_TEXT *text) {
    VO_ASSERT_REF(items);
    xmlNsItemsInsertItem(items, index, Ref(xmlNsItemCreateText(text)));
}
void xmlNsItemsInsertItemTextValue(XML_NS_ITEMS **items, int64_t index, voString *value) {
    VO_ASSERT_REF(items);
    xmlNsItemsInsertItem(items, index, Ref(xmlNsItemCreateTextValue(value)));
}
void xmlNsItemsInsertItemTextEscape(XML_NS_ITEMS **items, int64_t index, voString *vos) {
    VO_ASSERT_REF(items);
    xmlNsItemsInsertItem(items, index, Ref(xmlNsItemCreateTextEscape(vos)));
}
void xmlNsItemsInsertItemCdata(XML_NS_ITEMS **items, int64_t index, XML_CDATA *cdata) {
    VO_ASSERT_REF(items);
    xmlNsItemsInsertItem(items, index, Ref(xmlNsItemCreateCdata(cdata)));
}

// ---------------------------------------------------------------- prepending

void xmlNsItemsPrependItemElement(XML_NS_ITEMS **items, XML_NS_ELEMENT *el) {
    xmlNsItemsInsertItemElement(items, 0, el);
}
void xmlNsItemsPrependItemProcessingInstruction(XML_NS_ITEMS **items,
                                                XML_PROCESSING_INSTRUCTION *pi) {
    xmlNsItemsInsertItemProcessingInstruction(items, 0, pi);
}
void xmlNsItemsPrependItemComment(XML_NS_ITEMS **items, XML_COMMENT *comment) {
    xmlNsItemsInsertItemComment(items, 0, comment);
}
void xmlNsItemsPrependItemText(XML_NS_ITEMS **items, XML_TEXT *text) {
    xmlNsItemsInsertItemText(items, 0, text);
}
void xmlNsItemsPrependItemTextValue(XML_NS_ITEMS **items, voString *value) {
    xmlNsItemsInsertItemTextValue(items, 0, value);
}
void xmlNsItemsPrependItemTextEscape(XML_NS_ITEMS **items, voString *vos) {
    xmlNsItemsInsertItemTextEscape(items, 0, vos);
}
void xmlNsItemsPrependItemCdata(XML_NS_ITEMS **items, XML_CDATA *cdata) {
    xmlNsItemsInsertItemCdata(items, 0, cdata);
}

// ---------------------------------------------------------------- appending

void xmlNsItemsAppendItemElement(XML_NS_ITEMS **items, XML_NS_ELEMENT *el) {
    VO_ASSERT_REF(items);
    xmlNsItemsAppendItem(items, Ref(xmlNsItemCreateElement(el)));
}
void xmlNsItemsAppendItemProcessingInstruction(XML_NS_ITEMS **items,
                                               XML_PROCESSING_INSTRUCTION *pi) {
    VO_ASSERT_REF(items);
    xmlNsItemsAppendItem(items, Ref(xmlNsItemCreateProcessingInstruction(pi)));
}
void xmlNsItemsAppendItemComment(XML_NS_ITEMS **items, XML_COMMENT *comment) {
    VO_ASSERT_REF(items);
    xmlNsItemsAppendItem(items, Ref(xmlNsItemCreateComment(comment)));
}
void xmlNsItemsAppendItemText(XML_NS_ITEMS **items, XML_TEXT *text) {
    VO_ASSERT_REF(items);
    xmlNsItemsAppendItem(items, Ref(xmlNsItemCreateText(text)));
}
void xmlNsItemsAppendItemTextValue(XML_NS_ITEMS **items, voString *value) {
    VO_ASSERT_REF(items);
    xmlNsItemsAppendItem(items, Ref(xmlNsItemCreateTextValue(value)));
}
void xmlNsItemsAppendItemTextEscape(XML_NS_ITEMS **items, voString *vos) {
    VO_ASSERT_REF(items);
    xmlNsItemsAppendItem(items, Ref(xmlNsItemCreateTextEscape(vos)));
}
void xmlNsItemsAppendItemCdata(XML_NS_ITEMS **items, XML_CDATA *cdata) {
    VO_ASSERT_REF(items);
    xmlNsItemsAppendItem(items, Ref(xmlNsItemCreateCdata(cdata)));
}
