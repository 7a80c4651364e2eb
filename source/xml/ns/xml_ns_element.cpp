#include "xml/xml_ns_element.h"

#include "source/xml/base/xml_object.hpp"
#include "source/xml/ns/xml_ns_element.hpp"
#include "source/xml/ns/xml_ns_item.hpp"
#include "source/xml/ns/xml_ns_items.hpp"
#include "xml/xml_ns_value.h"

using vo::assign;
using vo::Ref;
using vo::retained;

XML_OBJECT(NsElement, XML_NS_ELEMENT, el);
XML_LOCATION(NsElement, XML_NS_ELEMENT, el);

XML_NS_ELEMENT *xmlNsElementCreate(voString *localName, voString *optionalNs) {
    VO_ASSERT(xmlNsValueLocalNameOk( localName ));
    VO_ASSERT(!optionalNs || xmlNsValueNamespaceOk( optionalNs ));
    auto *el = vo::create<XML_NS_ELEMENT>(xmlNsElementSort());
    el->localName = retained(localName);
    el->ns = retained(optionalNs);
    el->attributes = xmlNsAttributesCreate();
    el->items = xmlNsItemsCreate();
    return el;
}

void xmlNsElementSetName(XML_NS_ELEMENT **el, voString *localName, voString *optionalNs) {
    VO_ASSERT_REF(el);
    VO_ASSERT(xmlNsValueLocalNameOk( localName ));
    VO_ASSERT(!optionalNs || xmlNsValueNamespaceOk( optionalNs ));
    assign(VO_EDIT(el)->localName, localName);
    assign(VO_EDIT(el)->ns, optionalNs);
}
voString *xmlNsElementLocalName(XML_NS_ELEMENT *el) { return retained(VO_READ(el)->localName); }
void xmlNsElementSetLocalName(XML_NS_ELEMENT **el, voString *localName) {
    VO_ASSERT_REF(el);
    VO_ASSERT(xmlNsValueLocalNameOk( localName ));
    assign(VO_EDIT(el)->localName, localName);
}
voString *xmlNsElementNamespace(XML_NS_ELEMENT *el) { return retained(VO_READ(el)->ns); }
int xmlNsElementHasNamespace(XML_NS_ELEMENT *el) { return VO_READ(el)->ns != nullptr; }
void xmlNsElementSetNamespace(XML_NS_ELEMENT **el, voString *ns) {
    VO_ASSERT_REF(el);
    VO_ASSERT(xmlNsValueNamespaceOk( ns ));
    assign(VO_EDIT(el)->ns, ns);
}
void xmlNsElementDelNamespace(XML_NS_ELEMENT **el) { assign(VO_EDIT(el)->ns, nullptr); }

XML_NS_NAMESPACE_MAP *xmlNsElementNamespaceMap(XML_NS_ELEMENT *el) {
    return retained(VO_READ(el)->namespaceMap);
}
int xmlNsElementHasNamespaceMap(XML_NS_ELEMENT *el) { return VO_READ(el)->namespaceMap != nullptr; }
void xmlNsElementSetNamespaceMap(XML_NS_ELEMENT **el, XML_NS_NAMESPACE_MAP *map) {
    VO_ASSERT_REF(el);
    VO_ASSERT(map);
    assign(VO_EDIT(el)->namespaceMap, map);
}
void xmlNsElementDelNamespaceMap(XML_NS_ELEMENT **el) {
    assign(VO_EDIT(el)->namespaceMap, nullptr);
}

XML_NS_ATTRIBUTES *xmlNsElementAttributes(XML_NS_ELEMENT *el) {
    return retained(VO_READ(el)->attributes);
}
void xmlNsElementSetAttributes(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTES *attrs) {
    VO_ASSERT_REF(el);
    VO_ASSERT(attrs);
    assign(VO_EDIT(el)->attributes, attrs);
}

XML_NS_ITEMS *xmlNsElementItems(XML_NS_ELEMENT *el) { return retained(VO_READ(el)->items); }
void xmlNsElementSetItems(XML_NS_ELEMENT **el, XML_NS_ITEMS *items) {
    VO_ASSERT_REF(el);
    VO_ASSERT(items);
    assign(VO_EDIT(el)->items, items);
}
void xmlNsElementMakeAll(XML_NS_ELEMENT *el) {
    xml::makeAll<XML_NS_ITEM, XML_NS_ELEMENT>(VO_READ(el)->items);
}

// ---------------------------------------------------------------- attributes

int64_t xmlNsElementAttributesLength(XML_NS_ELEMENT *el) {
    return xmlNsAttributesLength(VO_READ(el)->attributes);
}
XML_NS_ATTRIBUTE *xmlNsElementAttributeAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsAttributesAttributeAt(VO_READ(el)->attributes, index);
}
voString *xmlNsElementAttributeLocalNameAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsAttributesAttributeLocalNameAt(VO_READ(el)->attributes, index);
}
voString *xmlNsElementAttributeNamespaceAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsAttributesAttributeNamespaceAt(VO_READ(el)->attributes, index);
}
int xmlNsElementAttributeHasNamespaceAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsAttributesAttributeHasNamespaceAt(VO_READ(el)->attributes, index);
}
XML_TEXT *xmlNsElementAttributeTextAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsAttributesAttributeTextAt(VO_READ(el)->attributes, index);
}
voString *xmlNsElementAttributeTextValueAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsAttributesAttributeTextValueAt(VO_READ(el)->attributes, index);
}
voString *xmlNsElementAttributeTextTryUnescapeAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsAttributesAttributeTextTryUnescapeAt(VO_READ(el)->attributes, index);
}
XML_NS_ATTRIBUTE *xmlNsElementAttribute(XML_NS_ELEMENT *el, voString *localName,
                                        voString *optionalNs) {
    return xmlNsAttributesAttribute(VO_READ(el)->attributes, localName, optionalNs);
}
XML_TEXT *xmlNsElementAttributeText(XML_NS_ELEMENT *el, voString *localName, voString *optionalNs) {
    return xmlNsAttributesAttributeText(VO_READ(el)->attributes, localName, optionalNs);
}
voString *xmlNsElementAttributeTextValue(XML_NS_ELEMENT *el, voString *localName,
                                         voString *optionalNs) {
    return xmlNsAttributesAttributeTextValue(VO_READ(el)->attributes, localName, optionalNs);
}
voString *xmlNsElementAttributeTextTryUnescape(XML_NS_ELEMENT *el, voString *localName,
                                               voString *optionalNs) {
    return xmlNsAttributesAttributeTextTryUnescape(VO_READ(el)->attributes, localName, optionalNs);
}
int xmlNsElementHasAttribute(XML_NS_ELEMENT *el, voString *localName, voString *optionalNs) {
    return xmlNsAttributesHasAttribute(VO_READ(el)->attributes, localName, optionalNs);
}

void xmlNsElementAttributesClear(XML_NS_ELEMENT **el) {
    xmlNsAttributesClear(&VO_EDIT(el)->attributes);
}
void xmlNsElementSetAttributeAt(XML_NS_ELEMENT **el, int64_t index, XML_NS_ATTRIBUTE *attr) {
    xmlNsAttributesSetAttributeAt(&VO_EDIT(el)->attributes, index, attr);
}
void xmlNsElementSetAttributeNameAt(XML_NS_ELEMENT **el, int64_t index, voString *localName,
                                    voString *optionalNs) {
    xmlNsAttributesSetAttributeNameAt(&VO_EDIT(el)->attributes, index, localName, optionalNs);
}
void xmlNsElementSetAttributeTextAt(XML_NS_ELEMENT **el, int64_t index, XML_TEXT *text) {
    xmlNsAttributesSetAttributeTextAt(&VO_EDIT(el)->attributes, index, text);
}
void xmlNsElementSetAttributeTextValueAt(XML_NS_ELEMENT **el, int64_t index, voString *value) {
    xmlNsAttributesSetAttributeTextValueAt(&VO_EDIT(el)->attributes, index, value);
}
void xmlNsElementSetAttributeTextEscapeAt(XML_NS_ELEMENT **el, int64_t index, voString *vos) {
    xmlNsAttributesSetAttributeTextEscapeAt(&VO_EDIT(el)->attributes, index, vos);
}
void xmlNsElementSetAttributeNameTextAt(XML_NS_ELEMENT **el, int64_t index, voString *localName,
                                        voString *optionalNs, XML_TEXT *text) {
    xmlNsAttributesSetAttributeNameTextAt(&VO_EDIT(el)->attributes, index, localName, optionalNs,
                                          text);
}
void xmlNsElementSetAttributeNameTextValueAt(XML_NS_ELEMENT **el, int64_t index,
                                             voString *localName, voString *optionalNs,
                                             voString *value) {
    xmlNsAttributesSetAttributeNameTextValueAt(&VO_EDIT(el)->attributes, index, localName,
                                               optionalNs, value);
}
void xmlNsElementSetAttributeNameTextEscapeAt(XML_NS_ELEMENT **el, int64_t index,
                                              voString *localName, voString *optionalNs,
                                              voString *vos) {
    xmlNsAttributesSetAttributeNameTextEscapeAt(&VO_EDIT(el)->attributes, index, localName,
                                                optionalNs, vos);
}
void xmlNsElementDelAttributeAt(XML_NS_ELEMENT **el, int64_t index) {
    xmlNsAttributesDelAttributeAt(&VO_EDIT(el)->attributes, index);
}

void xmlNsElementInsertAttributes(XML_NS_ELEMENT **el, int64_t index, XML_NS_ATTRIBUTES *others) {
    xmlNsAttributesInsert(&VO_EDIT(el)->attributes, index, others);
}
void xmlNsElementInsertAttribute(XML_NS_ELEMENT **el, int64_t index, XML_NS_ATTRIBUTE *attr) {
    xmlNsAttributesInsertAttribute(&VO_EDIT(el)->attributes, index, attr);
}
void xmlNsElementInsertAttributeNameText(XML_NS_ELEMENT **el, int64_t index, voString *localName,
                                         voString *optionalNs, XML_TEXT *text) {
    xmlNsAttributesInsertAttributeNameText(&VO_EDIT(el)->attributes, index, localName, optionalNs,
                                           text);
}
void xmlNsElementInsertAttributeNameTextValue(XML_NS_ELEMENT **el, int64_t index,
                                              voString *localName, voString *optionalNs,
                                              voString *value) {
    xmlNsAttributesInsertAttributeNameTextValue(&VO_EDIT(el)->attributes, index, localName,
                                                optionalNs, value);
}
void xmlNsElementInsertAttributeNameTextEscape(XML_NS_ELEMENT **el, int64_t index,
                                               voString *localName, voString *optionalNs,
                                               voString *vos) {
    xmlNsAttributesInsertAttributeNameTextEscape(&VO_EDIT(el)->attributes, index, localName,
                                                 optionalNs, vos);
}

void xmlNsElementPrependAttributes(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTES *others) {
    xmlNsAttributesPrepend(&VO_EDIT(el)->attributes, others);
}
void xmlNsElementPrependAttribute(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTE *attr) {
    xmlNsAttributesPrependAttribute(&VO_EDIT(el)->attributes, attr);
}
void xmlNsElementPrependAttributeNameText(XML_NS_ELEMENT **el, voString *localName,
                                          voString *optionalNs, XML_TEXT *text) {
    xmlNsAttributesPrependAttributeNameText(&VO_EDIT(el)->attributes, localName, optionalNs, text);
}
void xmlNsElementPrependAttributeNameTextValue(XML_NS_ELEMENT **el, voString *localName,
                                               voString *optionalNs, voString *value) {
    xmlNsAttributesPrependAttributeNameTextValue(&VO_EDIT(el)->attributes, localName, optionalNs,
                                                 value);
}
void xmlNsElementPrependAttributeNameTextEscape(XML_NS_ELEMENT **el, voString *localName,
                                                voString *optionalNs, voString *vos) {
    xmlNsAttributesPrependAttributeNameTextEscape(&VO_EDIT(el)->attributes, localName, optionalNs,
                                                  vos);
}

void xmlNsElementAppendAttributes(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTES *others) {
    xmlNsAttributesAppend(&VO_EDIT(el)->attributes, others);
}
void xmlNsElementAppendAttribute(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTE *attr) {
    xmlNsAttributesAppendAttribute(&VO_EDIT(el)->attributes, attr);
}
void xmlNsElementAppendAttributeNameText(XML_NS_ELEMENT **el, voString *localName,
                                         voString *optionalNs, XML_TEXT *text) {
    xmlNsAttributesAppendAttributeNameText(&VO_EDIT(el)->attributes, localName, optionalNs, text);
}
void xmlNsElementAppendAttributeNameTextValue(XML_NS_ELEMENT **el, voString *localName,
                                              voString *optionalNs, voString *value) {
    xmlNsAttributesAppendAttributeNameTextValue(&VO_EDIT(el)->attributes, localName, optionalNs,
                                                value);
}
void xmlNsElementAppendAttributeNameTextEscape(XML_NS_ELEMENT **el, voString *localName,
                                               voString *optionalNs, voString *vos) {
    xmlNsAttributesAppendAttributeNameTextEscape(&VO_EDIT(el)->attributes, localName, optionalNs,
                                                 vos);
}

void xmlNsElementSetAttribute(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTE *attr) {
    xmlNsAttributesSetAttribute(&VO_EDIT(el)->attributes, attr);
}
void xmlNsElementSetAttributeNameText(XML_NS_ELEMENT **el, voString *localName,
                                      voString *optionalNs, XML_TEXT *text) {
    xmlNsAttributesSetAttributeNameText(&VO_EDIT(el)->attributes, localName, optionalNs, text);
}
void xmlNsElementSetAttributeNameTextValue(XML_NS_ELEMENT **el, voString *localName,
                                           voString *optionalNs, voString *value) {
    xmlNsAttributesSetAttributeNameTextValue(&VO_EDIT(el)->attributes, localName, optionalNs,
                                             value);
}
void xmlNsElementSetAttributeNameTextEscape(XML_NS_ELEMENT **el, voString *localName,
                                            voString *optionalNs, voString *vos) {
    xmlNsAttributesSetAttributeNameTextEscape(&VO_EDIT(el)->attributes, localName, optionalNs, vos);
}
void xmlNsElementDelAttribute(XML_NS_ELEMENT **el, voString *localName, voString *optionalNs) {
    xmlNsAttributesDelAttribute(&VO_EDIT(el)->attributes, localName, optionalNs);
}

// ---------------------------------------------------------------- children

int64_t xmlNsElementItemsLength(XML_NS_ELEMENT *el) { return xmlNsItemsLength(VO_READ(el)->items); }
XML_NS_ITEM *xmlNsElementItemAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsItemsItemAt(VO_READ(el)->items, index);
}
XML_ITEM_TYPE xmlNsElementItemTypeAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsItemsItemTypeAt(VO_READ(el)->items, index);
}
XML_NS_ELEMENT *xmlNsElementItemElementAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsItemsItemElementAt(VO_READ(el)->items, index);
}
XML_PROCESSING_INSTRUCTION *xmlNsElementItemProcessingInstructionAt(XML_NS_ELEMENT *el,
                                                                    int64_t index) {
    return xmlNsItemsItemProcessingInstructionAt(VO_READ(el)->items, index);
}
XML_COMMENT *xmlNsElementItemCommentAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsItemsItemCommentAt(VO_READ(el)->items, index);
}
XML_TEXT *xmlNsElementItemTextAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsItemsItemTextAt(VO_READ(el)->items, index);
}
voString *xmlNsElementItemTextValueAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsItemsItemTextValueAt(VO_READ(el)->items, index);
}
voString *xmlNsElementItemTextTryUnescapeAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsItemsItemTextTryUnescapeAt(VO_READ(el)->items, index);
}
XML_CDATA *xmlNsElementItemCdataAt(XML_NS_ELEMENT *el, int64_t index) {
    return xmlNsItemsItemCdataAt(VO_READ(el)->items, index);
}

void xmlNsElementItemsClear(XML_NS_ELEMENT **el) { xmlNsItemsClear(&VO_EDIT(el)->items); }
void xmlNsElementSetItemAt(XML_NS_ELEMENT **el, int64_t index, XML_NS_ITEM *item) {
    xmlNsItemsSetItemAt(&VO_EDIT(el)->items, index, item);
}
void xmlNsElementSetItemElementAt(XML_NS_ELEMENT **el, int64_t index, XML_NS_ELEMENT *child) {
    Ref kept(retained(child)); // `child` may be the element itself
    xmlNsItemsSetItemElementAt(&VO_EDIT(el)->items, index, child);
}
void xmlNsElementSetItemProcessingInstructionAt(XML_NS_ELEMENT **el, int64_t index,
                                                XML_PROCESSING_INSTRUCTION *pi) {
    xmlNsItemsSetItemProcessingInstructionAt(&VO_EDIT(el)->items, index, pi);
}
void xmlNsElementSetItemCommentAt(XML_NS_ELEMENT **el, int64_t index, XML_COMMENT *comment) {
    xmlNsItemsSetItemCommentAt(&VO_EDIT(el)->items, index, comment);
}
void xmlNsElementSetItemTextAt(XML_NS_ELEMENT **el, int64_t index, XML_TEXT *text) {
    xmlNsItemsSetItemTextAt(&VO_EDIT(el)->items, index, text);
}
void xmlNsElementSetItemTextValueAt(XML_NS_ELEMENT **el, int64_t index, voString *value) {
    xmlNsItemsSetItemTextValueAt(&VO_EDIT(el)->items, index, value);
}
void xmlNsElementSetItemTextEscapeAt(XML_NS_ELEMENT **el, int64_t index, voString *vos) {
    xmlNsItemsSetItemTextEscapeAt(&VO_EDIT(el)->items, index, vos);
}

void xmlNsElementSetItemCdatdaAt(XML_NS_ELEMENT **el, int64_t index, XML_CDATA *cdata) {
    xmlNsItemsSetItemCdataAt(&VO_EDIT(el)->items, index, cdata);
}
void xmlNsElementDelItemAt(XML_NS_ELEMENT **el, int64_t index) {
    xmlNsItemsDelItemAt(&VO_EDIT(el)->items, index);
}

void xmlNsElementInsertItems(XML_NS_ELEMENT **el, int64_t index, XML_NS_ITEMS *source) {
    xmlNsItemsInsert(&VO_EDIT(el)->items, index, source);
}
void xmlNsElementInsertItem(XML_NS_ELEMENT **el, int64_t index, XML_NS_ITEM *item) {
    xmlNsItemsInsertItem(&VO_EDIT(el)->items, index, item);
}
void xmlNsElementInsertItemElement(XML_NS_ELEMENT **el, int64_t index, XML_NS_ELEMENT *child) {
    Ref kept(retained(child)); // `child` may be the element itself
    xmlNsItemsInsertItemElement(&VO_EDIT(el)->items, index, child);
}
void xmlNsElementInsertItemProcessingInstruction(XML_NS_ELEMENT **el, int64_t index,
                                                 XML_PROCESSING_INSTRUCTION *pi) {
    xmlNsItemsInsertItemProcessingInstruction(&VO_EDIT(el)->items, index, pi);
}
void xmlNsElementInsertItemComment(XML_NS_ELEMENT **el, int64_t index, XML_COMMENT *comment) {
    xmlNsItemsInsertItemComment(&VO_EDIT(el)->items, index, comment);
}
void xmlNsElementInsertItemText(XML_NS_ELEMENT **el, int64_t index, XML_TEXT *text) {
    xmlNsItemsInsertItemText(&VO_EDIT(el)->items, index, text);
}
void xmlNsElementInsertItemTextValue(XML_NS_ELEMENT **el, int64_t index, voString *value) {
    xmlNsItemsInsertItemTextValue(&VO_EDIT(el)->items, index, value);
}
void xmlNsElementInsertItemTextEscape(XML_NS_ELEMENT **el, int64_t index, voString *vos) {
    xmlNsItemsInsertItemTextEscape(&VO_EDIT(el)->items, index, vos);
}
void xmlNsElementInsertItemCdata(XML_NS_ELEMENT **el, int64_t index, XML_CDATA *cdata) {
    xmlNsItemsInsertItemCdata(&VO_EDIT(el)->items, index, cdata);
}

void xmlNsElementPrependItems(XML_NS_ELEMENT **el, XML_NS_ITEMS *source) {
    xmlNsItemsPrepend(&VO_EDIT(el)->items, source);
}
void xmlNsElementPrependItem(XML_NS_ELEMENT **el, XML_NS_ITEM *item) {
    xmlNsItemsPrependItem(&VO_EDIT(el)->items, item);
}
void xmlNsElementPrependItemElement(XML_NS_ELEMENT **el, XML_NS_ELEMENT *child) {
    Ref kept(retained(child)); // `child` may be the element itself
    xmlNsItemsPrependItemElement(&VO_EDIT(el)->items, child);
}
void xmlNsElementPrependItemProcessingInstruction(XML_NS_ELEMENT **el,
                                                  XML_PROCESSING_INSTRUCTION *pi) {
    xmlNsItemsPrependItemProcessingInstruction(&VO_EDIT(el)->items, pi);
}
void xmlNsElementPrependItemComment(XML_NS_ELEMENT **el, XML_COMMENT *comment) {
    xmlNsItemsPrependItemComment(&VO_EDIT(el)->items, comment);
}
void xmlNsElementPrependItemText(XML_NS_ELEMENT **el, XML_TEXT *text) {
    xmlNsItemsPrependItemText(&VO_EDIT(el)->items, text);
}
void xmlNsElementPrependItemTextValue(XML_NS_ELEMENT **el, voString *value) {
    xmlNsItemsPrependItemTextValue(&VO_EDIT(el)->items, value);
}
void xmlNsElementPrependItemTextEscape(XML_NS_ELEMENT **el, voString *vos) {
    xmlNsItemsPrependItemTextEscape(&VO_EDIT(el)->items, vos);
}
void xmlNsElementPrependItemCdata(XML_NS_ELEMENT **el, XML_CDATA *cdata) {
    xmlNsItemsPrependItemCdata(&VO_EDIT(el)->items, cdata);
}

void xmlNsElementAppendItems(XML_NS_ELEMENT **el, XML_NS_ITEMS *source) {
    xmlNsItemsAppend(&VO_EDIT(el)->items, source);
}
void xmlNsElementAppendItem(XML_NS_ELEMENT **el, XML_NS_ITEM *item) {
    xmlNsItemsAppendItem(&VO_EDIT(el)->items, item);
}
void xmlNsElementAppendItemElement(XML_NS_ELEMENT **el, XML_NS_ELEMENT *child) {
    Ref kept(retained(child)); // `child` may be the element itself
    xmlNsItemsAppendItemElement(&VO_EDIT(el)->items, child);
}
void xmlNsElementAppendItemProcessingInstruction(XML_NS_ELEMENT **el,
                                                 XML_PROCESSING_INSTRUCTION *pi) {
    xmlNsItemsAppendItemProcessingInstruction(&VO_EDIT(el)->items, pi);
}
void xmlNsElementAppendItemComment(XML_NS_ELEMENT **el, XML_COMMENT *comment) {
    xmlNsItemsAppendItemComment(&VO_EDIT(el)->items, comment);
}
void xmlNsElementAppendItemText(XML_NS_ELEMENT **el, XML_TEXT *text) {
    xmlNsItemsAppendItemText(&VO_EDIT(el)->items, text);
}
void xmlNsElementAppendItemTextValue(XML_NS_ELEMENT **el, voString *value) {
    xmlNsItemsAppendItemTextValue(&VO_EDIT(el)->items, value);
}
void xmlNsElementAppendItemTextEscape(XML_NS_ELEMENT **el, voString *vos) {
    xmlNsItemsAppendItemTextEscape(&VO_EDIT(el)->items, vos);
}
void xmlNsElementAppendItemCdata(XML_NS_ELEMENT **el, XML_CDATA *cdata) {
    xmlNsItemsAppendItemCdata(&VO_EDIT(el)->items, cdata);
}
