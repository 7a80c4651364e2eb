/** @file
 *  An element: a name, attributes and children. */
#ifndef XML_XML_ELEMENT_H
#define XML_XML_ELEMENT_H

#include "xml/xml_attributes.h"
#include "xml/xml_items.h"

VO_BEGIN_DECLS

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlElementSort(void);
VO_API XML_ELEMENT *xmlElementRetain(XML_ELEMENT *obj);
VO_API void xmlElementRelease(XML_ELEMENT *obj);
VO_API voObj *xmlElementObj(XML_ELEMENT *obj);
VO_API XML_ELEMENT *xmlElementFrom(voObj *obj);
VO_NEW voString *xmlElementToString(XML_ELEMENT *obj);
VO_API int64_t xmlElementCompare(XML_ELEMENT *objA, XML_ELEMENT *objB);
VO_API int xmlElementEquals(XML_ELEMENT *objA, XML_ELEMENT *objB);
VO_NEW XML_ELEMENT *xmlElementCreateFrom(XML_ELEMENT *source);
/** @} */

/** Makes an element without attributes, children and location. `name` must satisfy
 *  xmlValueNameOk(). */
VO_NEW XML_ELEMENT *xmlElementCreate(voString *name);

/** The name as the document writes it, prefix and colon included. */
VO_NEW voString *xmlElementName(XML_ELEMENT *el);

/** Renames the element; `name` must satisfy xmlValueNameOk(). */
VO_API void xmlElementSetName(XML_ELEMENT **el, voString *name);

/** @name The two lists
 *  The attribute list and the list of children themselves, never null. A list that is set is
 *  shared with the caller; changing it through either leaves the other alone. @{ */
VO_NEW XML_ATTRIBUTES *xmlElementAttributes(XML_ELEMENT *el);
VO_API void xmlElementSetAttributes(XML_ELEMENT **el, XML_ATTRIBUTES *attrs);
VO_NEW XML_ITEMS *xmlElementItems(XML_ELEMENT *el);
VO_API void xmlElementSetItems(XML_ELEMENT **el, XML_ITEMS *items);

/** Makes all objects below the element now; see xmlDocumentMakeAll(). */
VO_API void xmlElementMakeAll(XML_ELEMENT *el);
/** @} */

/** @name Attributes
 *  Each works on the element's attribute list as the operation of that name in xml_attributes.h
 *  does; the operations on a whole list are called ...AttributesLength, ...InsertAttributes and
 *  so on. ...TextValue gives and takes a text in escaped form, as a document writes it; to get the
 *  plain characters use ...TextTryUnescape, to set them ...TextEscape. @{ */
VO_API int64_t xmlElementAttributesLength(XML_ELEMENT *el);
VO_NEW XML_ATTRIBUTE *xmlElementAttributeAt(XML_ELEMENT *el, int64_t index);
VO_NEW voString *xmlElementAttributeNameAt(XML_ELEMENT *el, int64_t index);
VO_NEW XML_TEXT *xmlElementAttributeTextAt(XML_ELEMENT *el, int64_t index);
VO_NEW voString *xmlElementAttributeTextValueAt(XML_ELEMENT *el, int64_t index);
VO_NEW voString *xmlElementAttributeTextTryUnescapeAt(XML_ELEMENT *el, int64_t index);
VO_NEW XML_ATTRIBUTE *xmlElementAttribute(XML_ELEMENT *el, voString *name);
VO_NEW XML_TEXT *xmlElementAttributeText(XML_ELEMENT *el, voString *name);
VO_NEW voString *xmlElementAttributeTextValue(XML_ELEMENT *el, voString *name);
VO_NEW voString *xmlElementAttributeTextTryUnescape(XML_ELEMENT *el, voString *name);
VO_API int xmlElementHasAttribute(XML_ELEMENT *el, voString *name);

VO_API void xmlElementAttributesClear(XML_ELEMENT **el);
VO_API void xmlElementSetAttributeAt(XML_ELEMENT **el, int64_t index, XML_ATTRIBUTE *attr);
VO_API void xmlElementSetAttributeNameAt(XML_ELEMENT **el, int64_t index, voString *name);
VO_API void xmlElementSetAttributeTextAt(XML_ELEMENT **el, int64_t index, XML_TEXT *text);
VO_API void xmlElementSetAttributeTextValueAt(XML_ELEMENT **el, int64_t index, voString *value);
VO_API void xmlElementSetAttributeTextEscapeAt(XML_ELEMENT **el, int64_t index, voString *vos);
VO_API void xmlElementSetAttributeNameTextAt(XML_ELEMENT **el, int64_t index, voString *name,
                                             XML_TEXT *text);
VO_API void xmlElementSetAttributeNameTextValueAt(XML_ELEMENT **el, int64_t index, voString *name,
                                                  voString *value);
VO_API void xmlElementSetAttributeNameTextEscapeAt(XML_ELEMENT **el, int64_t index, voString *name,
                                                   voString *vos);
VO_API void xmlElementDelAttributeAt(XML_ELEMENT **el, int64_t index);

VO_API void xmlElementInsertAttributes(XML_ELEMENT **el, int64_t index, XML_ATTRIBUTES *others);
VO_API void xmlElementInsertAttribute(XML_ELEMENT **el, int64_t index, XML_ATTRIBUTE *attr);
VO_API void xmlElementInsertAttributeNameText(XML_ELEMENT **el, int64_t index, voString *name,
                                              XML_TEXT *text);
VO_API void xmlElementInsertAttributeNameTextValue(XML_ELEMENT **el, int64_t index, voString *name,
                                                   voString *value);
VO_API void xmlElementInsertAttributeNameTextEscape(XML_ELEMENT **el, int64_t index, voString *name,
                                                    voString *vos);

VO_API void xmlElementPrependAttributes(XML_ELEMENT **el, XML_ATTRIBUTES *others);
VO_API void xmlElementPrependAttribute(XML_ELEMENT **el, XML_ATTRIBUTE *attr);
VO_API void xmlElementPrependAttributeNameText(XML_ELEMENT **el, voString *name, XML_TEXT *text);
VO_API void xmlElementPrependAttributeNameTextValue(XML_ELEMENT **el, voString *name,
                                                    voString *value);
VO_API void xmlElementPrependAttributeNameTextEscape(XML_ELEMENT **el, voString *name,
                                                     voString *vos);

VO_API void xmlElementAppendAttributes(XML_ELEMENT **el, XML_ATTRIBUTES *others);
VO_API void xmlElementAppendAttribute(XML_ELEMENT **el, XML_ATTRIBUTE *attr);
VO_API void xmlElementAppendAttributeNameText(XML_ELEMENT **el, voString *name, XML_TEXT *text);
VO_API void xmlElementAppendAttributeNameTextValue(XML_ELEMENT **el, voString *name,
                                                   voString *value);
VO_API void xmlElementAppendAttributeNameTextEscape(XML_ELEMENT **el, voString *name,
                                                    voString *vos);

VO_API void xmlElementSetAttribute(XML_ELEMENT **el, XML_ATTRIBUTE *attr);
VO_API void xmlElementSetAttributeNameText(XML_ELEMENT **el, voString *name, XML_TEXT *text);
VO_API void xmlElementSetAttributeNameTextValue(XML_ELEMENT **el, voString *name, voString *value);
VO_API void xmlElementSetAttributeNameTextEscape(XML_ELEMENT **el, voString *name, voString *vos);
VO_API void xmlElementDelAttribute(XML_ELEMENT **el, voString *name);
/** @} */

/** @name Children
 *  Each works on the element's item list as the operation of that name in xml_items.h does; the
 *  operations on a whole list are called ...ItemsLength, ...InsertItems and so on. An element that
 *  is put into itself then holds itself as it was before. Texts as under Attributes. @{ */
VO_API int64_t xmlElementItemsLength(XML_ELEMENT *el);
VO_NEW XML_ITEM *xmlElementItemAt(XML_ELEMENT *el, int64_t index);
VO_API XML_ITEM_TYPE xmlElementItemTypeAt(XML_ELEMENT *el, int64_t index);
VO_NEW XML_ELEMENT *xmlElementItemElementAt(XML_ELEMENT *el, int64_t index);
VO_NEW XML_PROCESSING_INSTRUCTION *xmlElementItemProcessingInstructionAt(XML_ELEMENT *el,
                                                                         int64_t index);
VO_NEW XML_COMMENT *xmlElementItemCommentAt(XML_ELEMENT *el, int64_t index);
VO_NEW XML_TEXT *xmlElementItemTextAt(XML_ELEMENT *el, int64_t index);
VO_NEW voString *xmlElementItemTextValueAt(XML_ELEMENT *el, int64_t index);
VO_NEW voString *xmlElementItemTextTryUnescapeAt(XML_ELEMENT *el, int64_t index);
VO_NEW XML_CDATA *xmlElementItemCdataAt(XML_ELEMENT *el, int64_t index);

VO_API void xmlElementItemsClear(XML_ELEMENT **el);
VO_API void xmlElementSetItemAt(XML_ELEMENT **el, int64_t index, XML_ITEM *item);
VO_API void xmlElementSetItemElementAt(XML_ELEMENT **el, int64_t index, XML_ELEMENT *child);
VO_API void xmlElementSetItemProcessingInstructionAt(XML_ELEMENT **el, int64_t index,
                                                     XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlElementSetItemCommentAt(XML_ELEMENT **el, int64_t index, XML_COMMENT *comment);
VO_API void xmlElementSetItemTextAt(XML_ELEMENT **el, int64_t index, XML_TEXT *text);
VO_API void xmlElementSetItemTextValueAt(XML_ELEMENT **el, int64_t index, voString *value);
VO_API void xmlElementSetItemTextEscapeAt(XML_ELEMENT **el, int64_t index, voString *vos);
VO_API void xmlElementDelItemAt(XML_ELEMENT **el, int64_t index);
/** Forwards to xmlItemsSetItemCdataAt(). The misspelled name stays, since programs are linked to
 *  it. */
VO_API void xmlElementSetItemCdatdaAt(XML_ELEMENT **el, int64_t index, XML_CDATA *cdata);

VO_API void xmlElementInsertItems(XML_ELEMENT **el, int64_t index, XML_ITEMS *source);
VO_API void xmlElementInsertItem(XML_ELEMENT **el, int64_t index, XML_ITEM *item);
VO_API void xmlElementInsertItemElement(XML_ELEMENT **el, int64_t index, XML_ELEMENT *child);
VO_API void xmlElementInsertItemProcessingInstruction(XML_ELEMENT **el, int64_t index,
                                                      XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlElementInsertItemComment(XML_ELEMENT **el, int64_t index, XML_COMMENT *comment);
VO_API void xmlElementInsertItemText(XML_ELEMENT **el, int64_t index, XML_TEXT *text);
VO_API void xmlElementInsertItemTextValue(XML_ELEMENT **el, int64_t index, voString *value);
VO_API void xmlElementInsertItemTextEscape(XML_ELEMENT **el, int64_t index, voString *vos);
VO_API void xmlElementInsertItemCdata(XML_ELEMENT **el, int64_t index, XML_CDATA *cdata);

VO_API void xmlElementPrependItems(XML_ELEMENT **el, XML_ITEMS *source);
VO_API void xmlElementPrependItem(XML_ELEMENT **el, XML_ITEM *item);
VO_API void xmlElementPrependItemElement(XML_ELEMENT **el, XML_ELEMENT *child);
VO_API void xmlElementPrependItemProcessingInstruction(XML_ELEMENT **el,
                                                       XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlElementPrependItemComment(XML_ELEMENT **el, XML_COMMENT *comment);
VO_API void xmlElementPrependItemText(XML_ELEMENT **el, XML_TEXT *text);
VO_API void xmlElementPrependItemTextValue(XML_ELEMENT **el, voString *value);
VO_API void xmlElementPrependItemTextEscape(XML_ELEMENT **el, voString *vos);
VO_API void xmlElementPrependItemCdata(XML_ELEMENT **el, XML_CDATA *cdata);

VO_API void xmlElementAppendItems(XML_ELEMENT **el, XML_ITEMS *source);
VO_API void xmlElementAppendItem(XML_ELEMENT **el, XML_ITEM *item);
VO_API void xmlElementAppendItemElement(XML_ELEMENT **el, XML_ELEMENT *child);
VO_API void xmlElementAppendItemProcessingInstruction(XML_ELEMENT **el,
                                                      XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlElementAppendItemComment(XML_ELEMENT **el, XML_COMMENT *comment);
VO_API void xmlElementAppendItemText(XML_ELEMENT **el, XML_TEXT *text);
VO_API void xmlElementAppendItemTextValue(XML_ELEMENT **el, voString *value);
VO_API void xmlElementAppendItemTextEscape(XML_ELEMENT **el, voString *vos);
VO_API void xmlElementAppendItemCdata(XML_ELEMENT **el, XML_CDATA *cdata);
/** @} */

/** @name Location
 *  Where the element begins in the decoded input, see XML_FLAG_DECODE_LOCATION; null when that was
 *  not recorded. @{ */
VO_NEW voParserLocation *xmlElementLocation(XML_ELEMENT *el);
VO_API int xmlElementHasLocation(XML_ELEMENT *el);
VO_API void xmlElementSetLocation(XML_ELEMENT **el, voParserLocation *loc);
VO_API void xmlElementDelLocation(XML_ELEMENT **el);
/** @} */

VO_END_DECLS

#endif
