/** @file
 *  A child node in a tree with resolved names: an element of that tree, or one of the other nodes,
 *  which both kinds of tree share.
 *
 *  Items never change. The setters put a new item in the place of the caller's reference. */
#ifndef XML_XML_NS_ITEM_H
#define XML_XML_NS_ITEM_H

#include "xml/xml_cdata.h"
#include "xml/xml_comment.h"
#include "xml/xml_item_type.h"
#include "xml/xml_processing_instruction.h"
#include "xml/xml_text.h"

VO_BEGIN_DECLS

typedef struct XML_NS_ITEM XML_NS_ITEM;       /**< A child node. */
typedef struct XML_NS_ELEMENT XML_NS_ELEMENT; /**< See xml_ns_element.h, which includes this. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlNsItemSort(void);
VO_API XML_NS_ITEM *xmlNsItemRetain(XML_NS_ITEM *obj);
VO_API void xmlNsItemRelease(XML_NS_ITEM *obj);
VO_API voObj *xmlNsItemObj(XML_NS_ITEM *obj);
VO_API XML_NS_ITEM *xmlNsItemFrom(voObj *obj);
VO_NEW voString *xmlNsItemToString(XML_NS_ITEM *obj);
VO_API int64_t xmlNsItemCompare(XML_NS_ITEM *objA, XML_NS_ITEM *objB);
VO_API int xmlNsItemEquals(XML_NS_ITEM *objA, XML_NS_ITEM *objB);
VO_NEW XML_NS_ITEM *xmlNsItemCreateFrom(XML_NS_ITEM *source);
/** @} */

/** @name Construction
 *  An item that holds the given node, or a new text made as xmlTextCreateValue() and
 *  xmlTextCreateEscape() make it. @{ */
VO_NEW XML_NS_ITEM *xmlNsItemCreateElement(XML_NS_ELEMENT *el);
VO_NEW XML_NS_ITEM *xmlNsItemCreateProcessingInstruction(XML_PROCESSING_INSTRUCTION *pi);
VO_NEW XML_NS_ITEM *xmlNsItemCreateComment(XML_COMMENT *comment);
VO_NEW XML_NS_ITEM *xmlNsItemCreateText(XML_TEXT *text);
VO_NEW XML_NS_ITEM *xmlNsItemCreateTextValue(voString *value);
VO_NEW XML_NS_ITEM *xmlNsItemCreateTextEscape(voString *vos);
VO_NEW XML_NS_ITEM *xmlNsItemCreateCdata(XML_CDATA *cdata);
/** @} */

/** What the item holds. */
VO_API XML_ITEM_TYPE xmlNsItemType(XML_NS_ITEM *item);

/** @name Tests
 *  Whether the item holds a node of this kind. @{ */
VO_API int xmlNsItemIsElement(XML_NS_ITEM *item);
VO_API int xmlNsItemIsProcessingInstruction(XML_NS_ITEM *item);
VO_API int xmlNsItemIsComment(XML_NS_ITEM *item);
VO_API int xmlNsItemIsText(XML_NS_ITEM *item);
VO_API int xmlNsItemIsCdata(XML_NS_ITEM *item);
/** @} */

/** @name Content
 *  The node, or its text as a string: ...TextValue in escaped form, ...TextTryUnescape with
 *  references resolved (see xmlTextTryUnescape()). Null when the item holds a node of another
 *  kind. @{ */
VO_NEW XML_NS_ELEMENT *xmlNsItemElement(XML_NS_ITEM *item);
VO_NEW XML_PROCESSING_INSTRUCTION *xmlNsItemProcessingInstruction(XML_NS_ITEM *item);
VO_NEW XML_COMMENT *xmlNsItemComment(XML_NS_ITEM *item);
VO_NEW XML_TEXT *xmlNsItemText(XML_NS_ITEM *item);
VO_NEW voString *xmlNsItemTextValue(XML_NS_ITEM *item);
VO_NEW voString *xmlNsItemTextTryUnescape(XML_NS_ITEM *item);
VO_NEW XML_CDATA *xmlNsItemCdata(XML_NS_ITEM *item);
/** @} */

/** @name Replacement
 *  Makes the caller's reference a new item with this content, of whatever kind the old one was.
 *  Other holders keep the old item. `value` is in escaped form, `vos` in plain characters. @{ */
VO_API void xmlNsItemSetElement(XML_NS_ITEM **item, XML_NS_ELEMENT *el);
VO_API void xmlNsItemSetProcessingInstruction(XML_NS_ITEM **item, XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlNsItemSetComment(XML_NS_ITEM **item, XML_COMMENT *comment);
VO_API void xmlNsItemSetText(XML_NS_ITEM **item, XML_TEXT *text);
VO_API void xmlNsItemSetTextValue(XML_NS_ITEM **item, voString *value);
VO_API void xmlNsItemSetTextEscape(XML_NS_ITEM **item, voString *vos);
VO_API void xmlNsItemSetCdata(XML_NS_ITEM **item, XML_CDATA *cdata);
/** @} */

VO_END_DECLS

#endif
