/** @file
 *  An element whose name is resolved: a local name, an optional namespace, attributes, children,
 *  and the namespace declarations it brings. */
#ifndef XML_XML_NS_ELEMENT_H
#define XML_XML_NS_ELEMENT_H

#include "xml/xml_ns_attributes.h"
#include "xml/xml_ns_items.h"
#include "xml/xml_ns_namespace_map.h"

VO_BEGIN_DECLS

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlNsElementSort(void);
VO_API XML_NS_ELEMENT *xmlNsElementRetain(XML_NS_ELEMENT *obj);
VO_API void xmlNsElementRelease(XML_NS_ELEMENT *obj);
VO_API voObj *xmlNsElementObj(XML_NS_ELEMENT *obj);
VO_API XML_NS_ELEMENT *xmlNsElementFrom(voObj *obj);
VO_NEW voString *xmlNsElementToString(XML_NS_ELEMENT *obj);
VO_API int64_t xmlNsElementCompare(XML_NS_ELEMENT *objA, XML_NS_ELEMENT *objB);
VO_API int xmlNsElementEquals(XML_NS_ELEMENT *objA, XML_NS_ELEMENT *objB);
VO_NEW XML_NS_ELEMENT *xmlNsElementCreateFrom(XML_NS_ELEMENT *source);
/** @} */

/** Makes an element without attributes, children, namespace map and location. `localName` must
 *  satisfy xmlNsValueLocalNameOk() and `optionalNs`, unless null, xmlNsValueNamespaceOk(). */
VO_NEW XML_NS_ELEMENT *xmlNsElementCreate(voString *localName, voString *optionalNs);

/** @name Name
 *  The local name and the namespace, which is null when the element is in none. Setting both with
 *  a null namespace removes it. The checks are those of xmlNsElementCreate(). @{ */
VO_API void xmlNsElementSetName(XML_NS_ELEMENT **el, voString *localName, voString *optionalNs);
VO_NEW voString *xmlNsElementLocalName(XML_NS_ELEMENT *el);
VO_API void xmlNsElementSetLocalName(XML_NS_ELEMENT **el, voString *localName);
VO_NEW voString *xmlNsElementNamespace(XML_NS_ELEMENT *el);
VO_API int xmlNsElementHasNamespace(XML_NS_ELEMENT *el);
VO_API void xmlNsElementSetNamespace(XML_NS_ELEMENT **el, voString *ns);
VO_API void xmlNsElementDelNamespace(XML_NS_ELEMENT **el);
/** @} */

/** @name Namespace map
 *  The element's own namespace declarations, not what is in scope; null when it has none. Nothing
 *  checks them against the names in use. @{ */
VO_NEW XML_NS_NAMESPACE_MAP *xmlNsElementNamespaceMap(XML_NS_ELEMENT *el);
VO_API int xmlNsElementHasNamespaceMap(XML_NS_ELEMENT *el);
VO_API void xmlNsElementSetNamespaceMap(XML_NS_ELEMENT **el, XML_NS_NAMESPACE_MAP *map);
VO_API void xmlNsElementDelNamespaceMap(XML_NS_ELEMENT **el);
/** @} */

/** @name The two lists
 *  The attribute list and the list of children themselves, never null. A list that is set is
 *  shared with the caller; changing it through either leaves the other alone. @{ */
VO_NEW XML_NS_ATTRIBUTES *xmlNsElementAttributes(XML_NS_ELEMENT *el);
VO_API void xmlNsElementSetAttributes(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTES *attrs);
VO_NEW XML_NS_ITEMS *xmlNsElementItems(XML_NS_ELEMENT *el);
VO_API void xmlNsElementSetItems(XML_NS_ELEMENT **el, XML_NS_ITEMS *items);

/** Makes all objects below the element now; see xmlNsDocumentMakeAll(). */
VO_API void xmlNsElementMakeAll(XML_NS_ELEMENT *el);
/** @} */

/** @name Attributes
 *  Each works on the element's attribute list as the operation of that name in xml_ns_attributes.h
 *  does; the operations on a whole list are called ...AttributesLength, ...InsertAttributes and
 *  so on. ...TextValue gives and takes a text in escaped form, as a document writes it; to get the
 *  plain characters use ...TextTryUnescape, to set them ...TextEscape. @{ */
VO_API int64_t xmlNsElementAttributesLength(XML_NS_ELEMENT *el);
VO_NEW XML_NS_ATTRIBUTE *xmlNsElementAttributeAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW voString *xmlNsElementAttributeLocalNameAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW voString *xmlNsElementAttributeNamespaceAt(XML_NS_ELEMENT *el, int64_t index);
VO_API int xmlNsElementAttributeHasNamespaceAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW XML_TEXT *xmlNsElementAttributeTextAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW voString *xmlNsElementAttributeTextValueAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW voString *xmlNsElementAttributeTextTryUnescapeAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW XML_NS_ATTRIBUTE *xmlNsElementAttribute(XML_NS_ELEMENT *el, voString *localName,
                                               voString *optionalNs);
VO_NEW XML_TEXT *xmlNsElementAttributeText(XML_NS_ELEMENT *el, voString *localName,
                                           voString *optionalNs);
VO_NEW voString *xmlNsElementAttributeTextValue(XML_NS_ELEMENT *el, voString *localName,
                                                voString *optionalNs);
VO_NEW voString *xmlNsElementAttributeTextTryUnescape(XML_NS_ELEMENT *el, voString *localName,
                                                      voString *optionalNs);
VO_API int xmlNsElementHasAttribute(XML_NS_ELEMENT *el, voString *localName, voString *optionalNs);

VO_API void xmlNsElementAttributesClear(XML_NS_ELEMENT **el);
VO_API void xmlNsElementSetAttributeAt(XML_NS_ELEMENT **el, int64_t index, XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsElementSetAttributeNameAt(XML_NS_ELEMENT **el, int64_t index, voString *localName,
                                           voString *optionalNs);
VO_API void xmlNsElementSetAttributeTextAt(XML_NS_ELEMENT **el, int64_t index, XML_TEXT *text);
VO_API void xmlNsElementSetAttributeTextValueAt(XML_NS_ELEMENT **el, int64_t index,
                                                voString *value);
VO_API void xmlNsElementSetAttributeTextEscapeAt(XML_NS_ELEMENT **el, int64_t index, voString *vos);
VO_API void xmlNsElementSetAttributeNameTextAt(XML_NS_ELEMENT **el, int64_t index,
                                               voString *localName, voString *optionalNs,
                                               XML_TEXT *text);
VO_API void xmlNsElementSetAttributeNameTextValueAt(XML_NS_ELEMENT **el, int64_t index,
                                                    voString *localName, voString *optionalNs,
                                                    voString *value);
VO_API void xmlNsElementSetAttributeNameTextEscapeAt(XML_NS_ELEMENT **el, int64_t index,
                                                     voString *localName, voString *optionalNs,
                                                     voString *vos);
VO_API void xmlNsElementDelAttributeAt(XML_NS_ELEMENT **el, int64_t index);

VO_API void xmlNsElementInsertAttributes(XML_NS_ELEMENT **el, int64_t index,
                                         XML_NS_ATTRIBUTES *others);
VO_API void xmlNsElementInsertAttribute(XML_NS_ELEMENT **el, int64_t index, XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsElementInsertAttributeNameText(XML_NS_ELEMENT **el, int64_t index,
                                                voString *localName, voString *optionalNs,
                                                XML_TEXT *text);
VO_API void xmlNsElementInsertAttributeNameTextValue(XML_NS_ELEMENT **el, int64_t index,
                                                     voString *localName, voString *optionalNs,
                                                     voString *value);
VO_API void xmlNsElementInsertAttributeNameTextEscape(XML_NS_ELEMENT **el, int64_t index,
                                                      voString *localName, voString *optionalNs,
                                                      voString *vos);

VO_API void xmlNsElementPrependAttributes(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTES *others);
VO_API void xmlNsElementPrependAttribute(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsElementPrependAttributeNameText(XML_NS_ELEMENT **el, voString *localName,
                                                 voString *optionalNs, XML_TEXT *text);
VO_API void xmlNsElementPrependAttributeNameTextValue(XML_NS_ELEMENT **el, voString *localName,
                                                      voString *optionalNs, voString *value);
VO_API void xmlNsElementPrependAttributeNameTextEscape(XML_NS_ELEMENT **el, voString *localName,
                                                       voString *optionalNs, voString *vos);

VO_API void xmlNsElementAppendAttributes(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTES *others);
VO_API void xmlNsElementAppendAttribute(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsElementAppendAttributeNameText(XML_NS_ELEMENT **el, voString *localName,
                                                voString *optionalNs, XML_TEXT *text);
VO_API void xmlNsElementAppendAttributeNameTextValue(XML_NS_ELEMENT **el, voString *localName,
                                                     voString *optionalNs, voString *value);
VO_API void xmlNsElementAppendAttributeNameTextEscape(XML_NS_ELEMENT **el, voString *localName,
                                                      voString *optionalNs, voString *vos);

VO_API void xmlNsElementSetAttribute(XML_NS_ELEMENT **el, XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsElementSetAttributeNameText(XML_NS_ELEMENT **el, voString *localName,
                                             voString *optionalNs, XML_TEXT *text);
VO_API void xmlNsElementSetAttributeNameTextValue(XML_NS_ELEMENT **el, voString *localName,
                                                  voString *optionalNs, voString *value);
VO_API void xmlNsElementSetAttributeNameTextEscape(XML_NS_ELEMENT **el, voString *localName,
                                                   voString *optionalNs, voString *vos);
VO_API void xmlNsElementDelAttribute(XML_NS_ELEMENT **el, voString *localName,
                                     voString *optionalNs);
/** @} */

/** @name Children
 *  Each works on the element's item list as the operation of that name in xml_ns_items.h does; the
 *  operations on a whole list are called ...ItemsLength, ...InsertItems and so on. An element that
 *  is put into itself then holds itself as it was before. Texts as under Attributes. @{ */
VO_API int64_t xmlNsElementItemsLength(XML_NS_ELEMENT *el);
VO_NEW XML_NS_ITEM *xmlNsElementItemAt(XML_NS_ELEMENT *el, int64_t index);
VO_API XML_ITEM_TYPE xmlNsElementItemTypeAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW XML_NS_ELEMENT *xmlNsElementItemElementAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW XML_PROCESSING_INSTRUCTION *xmlNsElementItemProcessingInstructionAt(XML_NS_ELEMENT *el,
                                                                           int64_t index);
VO_NEW XML_COMMENT *xmlNsElementItemCommentAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW XML_TEXT *xmlNsElementItemTextAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW voString *xmlNsElementItemTextValueAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW voString *xmlNsElementItemTextTryUnescapeAt(XML_NS_ELEMENT *el, int64_t index);
VO_NEW XML_CDATA *xmlNsElementItemCdataAt(XML_NS_ELEMENT *el, int64_t index);

VO_API void xmlNsElementItemsClear(XML_NS_ELEMENT **el);
VO_API void xmlNsElementSetItemAt(XML_NS_ELEMENT **el, int64_t index, XML_NS_ITEM *item);
VO_API void xmlNsElementSetItemElementAt(XML_NS_ELEMENT **el, int64_t index, XML_NS_ELEMENT *child);
VO_API void xmlNsElementSetItemProcessingInstructionAt(XML_NS_ELEMENT **el, int64_t index,
                                                       XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlNsElementSetItemCommentAt(XML_NS_ELEMENT **el, int64_t index, XML_COMMENT *comment);
VO_API void xmlNsElementSetItemTextAt(XML_NS_ELEMENT **el, int64_t index, XML_TEXT *text);
VO_API void xmlNsElementSetItemTextValueAt(XML_NS_ELEMENT **el, int64_t index, voString *value);
VO_API void xmlNsElementSetItemTextEscapeAt(XML_NS_ELEMENT **el, int64_t index, voString *vos);
VO_API void xmlNsElementDelItemAt(XML_NS_ELEMENT **el, int64_t index);
/** Forwards to xmlNsItemsSetItemCdataAt(). The misspelled name stays, since programs are linked to
 *  it. */
VO_API void xmlNsElementSetItemCdatdaAt(XML_NS_ELEMENT **el, int64_t index, XML_CDATA *cdata);

VO_API void xmlNsElementInsertItems(XML_NS_ELEMENT **el, int64_t index, XML_NS_ITEMS *source);
VO_API void xmlNsElementInsertItem(XML_NS_ELEMENT **el, int64_t index, XML_NS_ITEM *item);
VO_API void xmlNsElementInsertItemElement(XML_NS_ELEMENT **el, int64_t index,
                                          XML_NS_ELEMENT *child);
VO_API void xmlNsElementInsertItemProcessingInstruction(XML_NS_ELEMENT **el, int64_t index,
                                                        XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlNsElementInsertItemComment(XML_NS_ELEMENT **el, int64_t index, XML_COMMENT *comment);
VO_API void xmlNsElementInsertItemText(XML_NS_ELEMENT **el, int64_t index, XML_TEXT *text);
VO_API void xmlNsElementInsertItemTextValue(XML_NS_ELEMENT **el, int64_t index, voString *value);
VO_API void xmlNsElementInsertItemTextEscape(XML_NS_ELEMENT **el, int64_t index, voString *vos);
VO_API void xmlNsElementInsertItemCdata(XML_NS_ELEMENT **el, int64_t index, XML_CDATA *cdata);

VO_API void xmlNsElementPrependItems(XML_NS_ELEMENT **el, XML_NS_ITEMS *source);
VO_API void xmlNsElementPrependItem(XML_NS_ELEMENT **el, XML_NS_ITEM *item);
VO_API void xmlNsElementPrependItemElement(XML_NS_ELEMENT **el, XML_NS_ELEMENT *child);
VO_API void xmlNsElementPrependItemProcessingInstruction(XML_NS_ELEMENT **el,
                                                         XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlNsElementPrependItemComment(XML_NS_ELEMENT **el, XML_COMMENT *comment);
VO_API void xmlNsElementPrependItemText(XML_NS_ELEMENT **el, XML_TEXT *text);
VO_API void xmlNsElementPrependItemTextValue(XML_NS_ELEMENT **el, voString *value);
VO_API void xmlNsElementPrependItemTextEscape(XML_NS_ELEMENT **el, voString *vos);
VO_API void xmlNsElementPrependItemCdata(XML_NS_ELEMENT **el, XML_CDATA *cdata);

VO_API void xmlNsElementAppendItems(XML_NS_ELEMENT **el, XML_NS_ITEMS *source);
VO_API void xmlNsElementAppendItem(XML_NS_ELEMENT **el, XML_NS_ITEM *item);
VO_API void xmlNsElementAppendItemElement(XML_NS_ELEMENT **el, XML_NS_ELEMENT *child);
VO_API void xmlNsElementAppendItemProcessingInstruction(XML_NS_ELEMENT **el,
                                                        XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlNsElementAppendItemComment(XML_NS_ELEMENT **el, XML_COMMENT *comment);
VO_API void xmlNsElementAppendItemText(XML_NS_ELEMENT **el, XML_TEXT *text);
VO_API void xmlNsElementAppendItemTextValue(XML_NS_ELEMENT **el, voString *value);
VO_API void xmlNsElementAppendItemTextEscape(XML_NS_ELEMENT **el, voString *vos);
VO_API void xmlNsElementAppendItemCdata(XML_NS_ELEMENT **el, XML_CDATA *cdata);
/** @} */

/** @name Location
 *  Where the element begins in the decoded input, see XML_FLAG_DECODE_LOCATION; null when that was
 *  not recorded. @{ */
VO_NEW voParserLocation *xmlNsElementLocation(XML_NS_ELEMENT *el);
VO_API int xmlNsElementHasLocation(XML_NS_ELEMENT *el);
VO_API void xmlNsElementSetLocation(XML_NS_ELEMENT **el, voParserLocation *loc);
VO_API void xmlNsElementDelLocation(XML_NS_ELEMENT **el);
/** @} */

VO_END_DECLS

#endif
