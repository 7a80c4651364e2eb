/** @file
 *  The children of an element or the top level of a document, in document order.
 *
 *  The functions named after a kind of node save the caller the item around it: reading gives null
 *  for an item of another kind, writing makes a new item as xmlItemCreate... does. ...TextValue
 *  gives and takes escaped text; ...TextEscape takes and ...TextTryUnescape gives plain characters.
 *  Indexes count from 0; an index outside the list aborts. */
#ifndef XML_XML_ITEMS_H
#define XML_XML_ITEMS_H

#include "xml/xml_item.h"

VO_BEGIN_DECLS

typedef struct XML_ITEMS XML_ITEMS; /**< A list of items. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlItemsSort(void);
VO_API XML_ITEMS *xmlItemsRetain(XML_ITEMS *obj);
VO_API void xmlItemsRelease(XML_ITEMS *obj);
VO_API voObj *xmlItemsObj(XML_ITEMS *obj);
VO_API XML_ITEMS *xmlItemsFrom(voObj *obj);
VO_NEW voString *xmlItemsToString(XML_ITEMS *obj);
VO_API int64_t xmlItemsCompare(XML_ITEMS *objA, XML_ITEMS *objB);
VO_API int xmlItemsEquals(XML_ITEMS *objA, XML_ITEMS *objB);
VO_NEW XML_ITEMS *xmlItemsCreateFrom(XML_ITEMS *source);
/** @} */

/** Makes an empty list. */
VO_NEW XML_ITEMS *xmlItemsCreate(void);

/** The number of items. */
VO_API int64_t xmlItemsLength(XML_ITEMS *items);

/** Removes all items. */
VO_API void xmlItemsClear(XML_ITEMS **items);

/** The items as a vector of XML_ITEM. */
VO_NEW voVector *xmlItemsItemsVector(XML_ITEMS *items);

/** Replaces the whole content. Every object of `vec` must be an XML_ITEM. */
VO_API void xmlItemsSetItemsVector(XML_ITEMS **items, voVector *vec);

/** @name Another list's items
 *  Places all items of `source`, in order, before the one at `index`, which may equal the length;
 *  first; or last. `source` may be the list itself. @{ */
VO_API void xmlItemsInsert(XML_ITEMS **items, int64_t index, XML_ITEMS *source);
VO_API void xmlItemsPrepend(XML_ITEMS **items, XML_ITEMS *source);
VO_API void xmlItemsAppend(XML_ITEMS **items, XML_ITEMS *source);
/** @} */

/** @name By index
 *  The item at `index` and what it holds, as xmlItem... of that name gives it. @{ */
VO_NEW XML_ITEM *xmlItemsItemAt(XML_ITEMS *items, int64_t index);
VO_API XML_ITEM_TYPE xmlItemsItemTypeAt(XML_ITEMS *items, int64_t index);
VO_NEW XML_ELEMENT *xmlItemsItemElementAt(XML_ITEMS *items, int64_t index);
VO_NEW XML_PROCESSING_INSTRUCTION *xmlItemsItemProcessingInstructionAt(XML_ITEMS *items,
                                                                       int64_t index);
VO_NEW XML_COMMENT *xmlItemsItemCommentAt(XML_ITEMS *items, int64_t index);
VO_NEW XML_TEXT *xmlItemsItemTextAt(XML_ITEMS *items, int64_t index);
VO_NEW voString *xmlItemsItemTextValueAt(XML_ITEMS *items, int64_t index);
VO_NEW voString *xmlItemsItemTextTryUnescapeAt(XML_ITEMS *items, int64_t index);
VO_NEW XML_CDATA *xmlItemsItemCdataAt(XML_ITEMS *items, int64_t index);
/** @} */

/** @name Replacing by index
 *  Puts an item in the place of the one at `index`. @{ */
VO_API void xmlItemsSetItemAt(XML_ITEMS **items, int64_t index, XML_ITEM *item);
VO_API void xmlItemsSetItemElementAt(XML_ITEMS **items, int64_t index, XML_ELEMENT *el);
VO_API void xmlItemsSetItemProcessingInstructionAt(XML_ITEMS **items, int64_t index,
                                                   XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlItemsSetItemCommentAt(XML_ITEMS **items, int64_t index, XML_COMMENT *comment);
VO_API void xmlItemsSetItemTextAt(XML_ITEMS **items, int64_t index, XML_TEXT *text);
VO_API void xmlItemsSetItemTextValueAt(XML_ITEMS **items, int64_t index, voString *value);
VO_API void xmlItemsSetItemTextEscapeAt(XML_ITEMS **items, int64_t index, voString *vos);
VO_API void xmlItemsSetItemCdataAt(XML_ITEMS **items, int64_t index, XML_CDATA *cdata);
/** @} */

/** @name Inserting
 *  Before the item at `index`, which may equal the length. @{ */
VO_API void xmlItemsInsertItem(XML_ITEMS **items, int64_t index, XML_ITEM *item);
VO_API void xmlItemsInsertItemElement(XML_ITEMS **items, int64_t index, XML_ELEMENT *el);
VO_API void xmlItemsInsertItemProcessingInstruction(XML_ITEMS **items, int64_t index,
                                                    XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlItemsInsertItemComment(XML_ITEMS **items, int64_t index, XML_COMMENT *comment);
VO_API void xmlItemsInsertItemText(XML_ITEMS **items, int64_t index, XML_TEXT *text);
VO_API void xmlItemsInsertItemTextValue(XML_ITEMS **items, int64_t index, voString *value);
VO_API void xmlItemsInsertItemTextEscape(XML_ITEMS **items, int64_t index, voString *vos);
VO_API void xmlItemsInsertItemCdata(XML_ITEMS **items, int64_t index, XML_CDATA *cdata);
/** @} */

/** @name Prepending
 *  Before all items. @{ */
VO_API void xmlItemsPrependItem(XML_ITEMS **items, XML_ITEM *item);
VO_API void xmlItemsPrependItemElement(XML_ITEMS **items, XML_ELEMENT *el);
VO_API void xmlItemsPrependItemProcessingInstruction(XML_ITEMS **items,
                                                     XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlItemsPrependItemComment(XML_ITEMS **items, XML_COMMENT *comment);
VO_API void xmlItemsPrependItemText(XML_ITEMS **items, XML_TEXT *text);
VO_API void xmlItemsPrependItemTextValue(XML_ITEMS **items, voString *value);
VO_API void xmlItemsPrependItemTextEscape(XML_ITEMS **items, voString *vos);
VO_API void xmlItemsPrependItemCdata(XML_ITEMS **items, XML_CDATA *cdata);
/** @} */

/** @name Appending
 *  After all items, at a cost that does not grow with the list. @{ */
VO_API void xmlItemsAppendItem(XML_ITEMS **items, XML_ITEM *item);
VO_API void xmlItemsAppendItemElement(XML_ITEMS **items, XML_ELEMENT *el);
VO_API void xmlItemsAppendItemProcessingInstruction(XML_ITEMS **items,
                                                    XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlItemsAppendItemComment(XML_ITEMS **items, XML_COMMENT *comment);
VO_API void xmlItemsAppendItemText(XML_ITEMS **items, XML_TEXT *text);
VO_API void xmlItemsAppendItemTextValue(XML_ITEMS **items, voString *value);
VO_API void xmlItemsAppendItemTextEscape(XML_ITEMS **items, voString *vos);
VO_API void xmlItemsAppendItemCdata(XML_ITEMS **items, XML_CDATA *cdata);
/** @} */

/** Removes the item at `index`. */
VO_API void xmlItemsDelItemAt(XML_ITEMS **items, int64_t index);

VO_END_DECLS

#endif
