#include "xml/xml_items.h"

#include "source/xml/base/xml_items.hpp"
#include "source/xml/base/xml_object.hpp"

using vo::Ref;
using vo::retained;
using xml::VectorEdit;
using xml::vectorOf;

XML_OBJECT(Items, XML_ITEMS, items);

// ---------------------------------------------------------------- the whole list

XML_ITEMS *xmlItemsCreate(void) {
    auto *items = vo::create<XML_ITEMS>(xmlItemsSort());
    items->itemsVector.set(voVectorCreate());
    return items;
}
int64_t xmlItemsLength(XML_ITEMS *items) { return voVectorLength(vectorOf(VO_READ(items))); }
void xmlItemsClear(XML_ITEMS **items) {
    VO_ASSERT_REF(items);
    xmlItemsSetItemsVector(items, Ref(voVectorCreate()));
}
voVector *xmlItemsItemsVector(XML_ITEMS *items) { return retained(vectorOf(VO_READ(items))); }
void xmlItemsSetItemsVector(XML_ITEMS **items, voVector *vec) {
    VO_ASSERT_REF(items);
    VO_ASSERT(voVectorContainsOnly( vec, xmlItemSort() ));
    // VO_EDIT would first make the items that are dropped here.
    if (!vo::isSole(*items)) xml::replace(items, xmlItemsCreate());
    (*items)->itemsVector.replace(retained(vec));
}
void xmlItemsInsert(XML_ITEMS **items, int64_t index, XML_ITEMS *source) {
    VO_ASSERT_REF(items);
    VO_ASSERT(source);
    Ref kept(retained(source)); // `source` may be the list itself
    voVectorInsert(VectorEdit(VO_EDIT(items)), index, vectorOf(source));
}
void xmlItemsPrepend(XML_ITEMS **items, XML_ITEMS *source) { xmlItemsInsert(items, 0, source); }
void xmlItemsAppend(XML_ITEMS **items, XML_ITEMS *source) {
    VO_ASSERT_REF(items);
    xmlItemsInsert(items, xmlItemsLength(*items), source);
}

// ---------------------------------------------------------------- items

XML_ITEM *xmlItemsItemAt(XML_ITEMS *items, int64_t index) {
    return xmlItemFrom(voVectorObjAt(vectorOf(VO_READ(items)), index));
}
void xmlItemsSetItemAt(XML_ITEMS **items, int64_t index, XML_ITEM *item) {
    VO_ASSERT_REF(items);
    VO_ASSERT(item);
    voVectorSetObjAt(VectorEdit(VO_EDIT(items)), index, xmlItemObj(item));
}
void xmlItemsDelItemAt(XML_ITEMS **items, int64_t index) {
    voVectorDelAt(VectorEdit(VO_EDIT(items)), index);
}
void xmlItemsInsertItem(XML_ITEMS **items, int64_t index, XML_ITEM *item) {
    VO_ASSERT_REF(items);
    VO_ASSERT(item);
    voVectorInsertObj(VectorEdit(VO_EDIT(items)), index, xmlItemObj(item));
}
void xmlItemsPrependItem(XML_ITEMS **items, XML_ITEM *item) { xmlItemsInsertItem(items, 0, item); }
void xmlItemsAppendItem(XML_ITEMS **items, XML_ITEM *item) {
    VO_ASSERT_REF(items);
    xmlItemsInsertItem(items, xmlItemsLength(*items), item);
}

// ---------------------------------------------------------------- what an item holds

XML_ITEM_TYPE xmlItemsItemTypeAt(XML_ITEMS *items, int64_t index) {
    return xmlItemType(Ref(xmlItemsItemAt(items, index)));
}
XML_ELEMENT *xmlItemsItemElementAt(XML_ITEMS *items, int64_t index) {
    return xmlItemElement(Ref(xmlItemsItemAt(items, index)));
}
XML_PROCESSING_INSTRUCTION *xmlItemsItemProcessingInstructionAt(XML_ITEMS *items, int64_t index) {
    return xmlItemProcessingInstruction(Ref(xmlItemsItemAt(items, index)));
}
XML_COMMENT *xmlItemsItemCommentAt(XML_ITEMS *items, int64_t index) {
    return xmlItemComment(Ref(xmlItemsItemAt(items, index)));
}
XML_TEXT *xmlItemsItemTextAt(XML_ITEMS *items, int64_t index) {
    return xmlItemText(Ref(xmlItemsItemAt(items, index)));
}
voString *xmlItemsItemTextValueAt(XML_ITEMS *items, int64_t index) {
    return xmlItemTextValue(Ref(xmlItemsItemAt(items, index)));
}
voString *xmlItemsItemTextTryUnescapeAt(XML_ITEMS *items, int64_t index) {
    return xmlItemTextTryUnescape(Ref(xmlItemsItemAt(items, index)));
}
XML_CDATA *xmlItemsItemCdataAt(XML_ITEMS *items, int64_t index) {
    return xmlItemCdata(Ref(xmlItemsItemAt(items, index)));
}

// ---------------------------------------------------------------- replacing by index

void xmlItemsSetItemElementAt(XML_ITEMS **items, int64_t index, XML_ELEMENT *el) {
    VO_ASSERT_REF(items);
    xmlItemsSetItemAt(items, index, Ref(xmlItemCreateElement(el)));
}
void xmlItemsSetItemProcessingInstructionAt(XML_ITEMS **items, int64_t index,
                                            XML_PROCESSING_INSTRUCTION *pi) {
    VO_ASSERT_REF(items);
    xmlItemsSetItemAt(items, index, Ref(xmlItemCreateProcessingInstruction(pi)));
}
void xmlItemsSetItemCommentAt(XML_ITEMS **items, int64_t index, XML_COMMENT *comment) {
    VO_ASSERT_REF(items);
    xmlItemsSetItemAt(items, index, Ref(xmlItemCreateComment(comment)));
}
void xmlItemsSetItemTextAt(XML_ITEMS **items, int64_t index, XML_TEXT *text) {
    VO_ASSERT_REF(items);
    xmlItemsSetItemAt(items, index, Ref(xmlItemCreateText(text)));
}
void xmlItemsSetItemTextValueAt(XML_ITEMS **items, int64_t index, voString *value) {
    VO_ASSERT_REF(items);
    xmlItemsSetItemAt(items, index, Ref(xmlItemCreateTextValue(value)));
}
void xmlItemsSetItemTextEscapeAt(XML_ITEMS **items, int64_t index, voString *vos) {
    VO_ASSERT_REF(items);
    xmlItemsSetItemAt(items, index, Ref(xmlItemCreateTextEscape(vos)));
}
void xmlItemsSetItemCdataAt(XML_ITEMS **items, int64_t index, XML_CDATA *cdata) {
    VO_ASSERT_REF(items);
    xmlItemsSetItemAt(items, index, Ref(xmlItemCreateCdata(cdata)));
}

// ---------------------------------------------------------------- inserting

void xmlItemsInsertItemElement(XML_ITEMS **items, int64_t index, XML_ELEMENT *el) {
    VO_ASSERT_REF(items);
    xmlItemsInsertItem(items, index, Ref(xmlItemCreateElement(el)));
}
void xmlItemsInsertItemProcessingInstruction(XML_ITEMS **items, int64_t index,
                                             XML_PROCESSING_INSTRUCTION *pi) {
    VO_ASSERT_REF(items);
    xmlItemsInsertItem(items, index, Ref(xmlItemCreateProcessingInstruction(pi)));
}
void xmlItemsInsertItemComment(XML_ITEMS **items, int64_t index, XML_COMMENT *comment) {
    VO_ASSERT_REF(items);
    xmlItemsInsertItem(items, index, Ref(xmlItemCreateComment(comment)));
}
void xmlItemsInsertItemText(XML_ITEMS **items, int64_t index, XML_TEXT *text) {
    VO_ASSERT_REF(items);
    xmlItemsInsertItem(items, index, Ref(xmlItemCreateText(text)));
}
void xmlItemsInsertItemTextValue(XML_ITEMS **items, int64_t index, voString *value) {
    VO_ASSERT_REF(items);
    xmlItemsInsertItem(items, index, Ref(xmlItemCreateTextValue(value)));
}
void xmlItemsInsertItemTextEscape(XML_ITEMS **items, int64_t index, voString *vos) {
    VO_ASSERT_REF(items);
    xmlItemsInsertItem(items, index, Ref(xmlItemCreateTextEscape(vos)));
}
void xmlItemsInsertItemCdata(XML_ITEMS **items, int64_t index, XML_CDATA *cdata) {
    VO_ASSERT_REF(items);
    xmlItemsInsertItem(items, index, Ref(xmlItemCreateCdata(cdata)));
}

// ---------------------------------------------------------------- prepending

void xmlItemsPrependItemElement(XML_ITEMS **items, XML_ELEMENT *el) {
    xmlItemsInsertItemElement(items, 0, el);
}
void xmlItemsPrependItemProcessingInstruction(XML_ITEMS **items, XML_PROCESSING_INSTRUCTION *pi) {
    xmlItemsInsertItemProcessingInstruction(items, 0, pi);
}
void xmlItemsPrependItemComment(XML_ITEMS **items, XML_COMMENT *comment) {
    xmlItemsInsertItemComment(items, 0, comment);
}
void xmlItemsPrependItemText(XML_ITEMS **items, XML_TEXT *text) {
    xmlItemsInsertItemText(items, 0, text);
}
void xmlItemsPrependItemTextValue(XML_ITEMS **items, voString *value) {
    xmlItemsInsertItemTextValue(items, 0, value);
}
void xmlItemsPrependItemTextEscape(XML_ITEMS **items, voString *vos) {
    xmlItemsInsertItemTextEscape(items, 0, vos);
}
void xmlItemsPrependItemCdata(XML_ITEMS **items, XML_CDATA *cdata) {
    xmlItemsInsertItemCdata(items, 0, cdata);
}

// ---------------------------------------------------------------- appending

void xmlItemsAppendItemElement(XML_ITEMS **items, XML_ELEMENT *el) {
    VO_ASSERT_REF(items);
    xmlItemsAppendItem(items, Ref(xmlItemCreateElement(el)));
}
void xmlItemsAppendItemProcessingInstruction(XML_ITEMS **items, XML_PROCESSING_INSTRUCTION *pi) {
    VO_ASSERT_REF(items);
    xmlItemsAppendItem(items, Ref(xmlItemCreateProcessingInstruction(pi)));
}
void xmlItemsAppendItemComment(XML_ITEMS **items, XML_COMMENT *comment) {
    VO_ASSERT_REF(items);
    xmlItemsAppendItem(items, Ref(xmlItemCreateComment(comment)));
}
void xmlItemsAppendItemText(XML_ITEMS **items, XML_TEXT *text) {
    VO_ASSERT_REF(items);
    xmlItemsAppendItem(items, Ref(xmlItemCreateText(text)));
}
void xmlItemsAppendItemTextValue(XML_ITEMS **items, voString *value) {
    VO_ASSERT_REF(items);
    xmlItemsAppendItem(items, Ref(xmlItemCreateTextValue(value)));
}
void xmlItemsAppendItemTextEscape(XML_ITEMS **items, voString *vos) {
    VO_ASSERT_REF(items);
    xmlItemsAppendItem(items, Ref(xmlItemCreateTextEscape(vos)));
}
void xmlItemsAppendItemCdata(XML_ITEMS **items, XML_CDATA *cdata) {
    VO_ASSERT_REF(items);
    xmlItemsAppendItem(items, Ref(xmlItemCreateCdata(cdata)));
}
