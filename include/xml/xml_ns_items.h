/** @file
 *  The children of an element with resolved names, or the top level of such a document, in
 *  document order.
 *
 *  The functions named after a kind of node save the caller the item around it: reading gives null
 *  for an item of another kind, writing makes a new item as xmlNsItemCreate... does. ...TextValue
 *  gives and takes escaped text; ...TextEscape takes and ...TextTryUnescape gives plain characters.
 *  Indexes count from 0; an index outside the list aborts. */
#ifndef XML_XML_NS_ITEMS_H
#define XML_XML_NS_ITEMS_H

#include "xml/xml_ns_item.h"

VO_BEGIN_DECLS

typedef struct XML_NS_ITEMS XML_NS_ITEMS; /**< A list of items. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlNsItemsSort(void);
VO_API XML_NS_ITEMS *xmlNsItemsRetain(XML_NS_ITEMS *obj);
VO_API void xmlNsItemsRelease(XML_NS_ITEMS *obj);
VO_API voObj *xmlNsItemsObj(XML_NS_ITEMS *obj);
VO_API XML_NS_ITEMS *xmlNsItemsFrom(voObj *obj);
VO_NEW voString *xmlNsItemsToString(XML_NS_ITEMS *obj);
VO_API int64_t xmlNsItemsCompare(XML_NS_ITEMS *objA, XML_NS_ITEMS *objB);
VO_API int xmlNsItemsEquals(XML_NS_ITEMS *objA, XML_NS_ITEMS *objB);
VO_NEW XML_NS_ITEMS *xmlNsItemsCreateFrom(XML_NS_ITEMS *source);
/** @} */

/** Makes an empty list. */
VO_NEW XML_NS_ITEMS *xmlNsItemsCreate(void);

/** The number of items. */
VO_API int64_t xmlNsItemsLength(XML_NS_ITEMS *items);

/** Removes all items. */
VO_API void xmlNsItemsClear(XML_NS_ITEMS **items);

/** The items as a vector of XML_NS_ITEM. */
VO_NEW voVector *xmlNsItemsItemsVector(XML_NS_ITEMS *items);

/** Replaces the whole content. Every object of `vec` must be an XML_NS_ITEM. */
VO_API void xmlNsItemsSetItemsVector(XML_NS_ITEMS **items, voVector *vec);

/** @name Another list's items
 *  Places all items of `source`, in order, before the one at `index`, which may equal the length;
 *  first; or last. `source` may be the list itself. @{ */
VO_API void xmlNsItemsInsert(XML_NS_ITEMS **items, int64_t index, XML_NS_ITEMS *source);
VO_API void xmlNsItemsPrepend(XML_NS_ITEMS **items, XML_NS_ITEMS *source);
VO_API void xmlNsItemsAppend(XML_NS_ITEMS **items, XML_NS_ITEMS *source);
/** @} */

/** @name By index
 *  The item at `index` and what it holds, as xmlNsItem... of that name gives it. @{ */
VO_NEW XML_NS_ITEM *xmlNsItemsItemAt(XML_NS_ITEMS *items, int64_t index);
VO_API XML_ITEM_TYPE xmlNsItemsItemTypeAt(XML_NS_ITEMS *items, int64_t index);
VO_NEW XML_NS_ELEMENT *xmlNsItemsItemElementAt(XML_NS_ITEMS *items, int64_t index);
VO_NEW XML_PROCESSING_INSTRUCTION *xmlNsItemsItemProcessingInstructionAt(XML_NS_ITEMS *items,
                                                                         int64_t index);
VO_NEW XML_COMMENT *xmlNsItemsItemCommentAt(XML_NS_ITEMS *items, int64_t index);
VO_NEW XML_TEXT *xmlNsItemsItemTextAt(XML_NS_ITEMS *items, int64_t index);
VO_NEW voString *xmlNsItemsItemTextValueAt(XML_NS_ITEMS *items, int64_t index);
VO_NEW voString *xmlNsItemsItemTextTryUnescapeAt(XML_NS_ITEMS *items, int64_t index);
VO_NEW XML_CDATA *xmlNsItemsItemCdataAt(XML_NS_ITEMS *items, int64_t index);
/** @} */

/** @name Replacing by index
 *  Puts an item in the place of the one at `index`. @{ */
VO_API void xmlNsItemsSetItemAt(XML_NS_ITEMS **items, int64_t index, XML_NS_ITEM *item);
VO_API void xmlNsItemsSetItemElementAt(XML_NS_ITEMS **items, int64_t index, XML_NS_ELEMENT *el);
VO_API void xmlNsItemsSetItemProcessingInstructionAt(XML_NS_ITEMS **items, int64_t index,
                                                     XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlNsItemsSetItemCommentAt(XML_NS_ITEMS **items, int64_t index, XML_COMMENT *comment);
VO_API void xmlNsItemsSetItemTextAt(XML_NS_ITEMS **items, int64_t index, XML_TEXT *text);
VO_API void xmlNsItemsSetItemTextValueAt(XML_NS_ITEMS **items, int64_t index, voString *value);
VO_API void xmlNsItemsSetItemTextEscapeAt(XML_NS_ITEMS **items, int64_t index, voString *vos);
VO_API void xmlNsItemsSetItemCdataAt(XML_NS_ITEMS **items, int64_t index, XML_CDATA *cdata);
/** @} */

/** @name Inserting
 *  Before the item at `index`, which may equal the length. @{ */
VO_API void xmlNsItemsInsertItem(XML_NS_ITEMS **items, int64_t index, XML_NS_ITEM *item);
VO_API void xmlNsItemsInsertItemElement(XML_NS_ITEMS **items, int64_t index, XML_NS_ELEMENT *el);
VO_API void xmlNsItemsInsertItemProcessingInstruction(XML_NS_ITEMS **items, int64_t index,
                                                      XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlNsItemsInsertItemComment(XML_NS_ITEMS **items, int64_t index, XML_COMMENT *comment);
VO_API void xmlNsItemsInsertItemText(XML_NS_ITEMS **items, int64_t index, XML_TEXT *text);
VO_API void xmlNsItemsInsertItemTextValue(XML_NS_ITEMS **items, int64_t index, voString *value);
VO_API void xmlNsItemsInsertItemTextEscape(XML_NS_ITEMS **items, int64_t index, voString *vos);
VO_API void xmlNsItemsInsertItemCdata(XML_NS_ITEMS **items, int64_t index, XML_CDATA *cdata);
/** @} */

/** @name Prepending
 *  Before all items. @{ */
VO_API void xmlNsItemsPrependItem(XML_NS_ITEMS **items, XML_NS_ITEM *item);
VO_API void xmlNsItemsPrependItemElement(XML_NS_ITEMS **items, XML_NS_ELEMENT *el);
VO_API void xmlNsItemsPrependItemProcessingInstruction(XML_NS_ITEMS **items,
                                                       XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlNsItemsPrependItemComment(XML_NS_ITEMS **items, XML_COMMENT *comment);
VO_API void xmlNsItemsPrependItemText(XML_NS_ITEMS **items, XML_TEXT *text);
VO_API void xmlNsItemsPrependItemTextValue(XML_NS_ITEMS **items, voString *value);
VO_API void xmlNsItemsPrependItemTextEscape(XML_NS_ITEMS **items, voString *vos);
VO_API void xmlNsItemsPrependItemCdata(XML_NS_ITEMS **items, XML_CDATA *cdata);
/** @} */

/** @name Appending
 *  After all items, at a cost that does not grow with the list. @{ */
VO_API void xmlNsItemsAppendItem(XML_NS_ITEMS **items, XML_NS_ITEM *item);
VO_API void xmlNsItemsAppendItemElement(XML_NS_ITEMS **items, XML_NS_ELEMENT *el);
VO_API void xmlNsItemsAppendItemProcessingInstruction(XML_NS_ITEMS **items,
                                                      XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlNsItemsAppendItemComment(XML_NS_ITEMS **items, XML_COMMENT *comment);
VO_API void xmlNsItemsAppendItemText(XML_NS_ITEMS **items, XML_TEXT *text);
VO_API void xmlNsItemsAppendItemTextValue(XML_NS_ITEMS **items, voString *value);
VO_API void xmlNsItemsAppendItemTextEscape(XML_NS_ITEMS **items, voString *vos);
VO_API void xmlNsItemsAppendItemCdata(XML_NS_ITEMS **items, XML_CDATA *cdata);
/** @} */

/** Removes the item at `index`. */
VO_API void xmlNsItemsDelItemAt(XML_NS_ITEMS **items, int64_t index);

VO_END_DECLS

#endif
