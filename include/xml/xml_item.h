/** @file
 *  A child node: an element, a processing instruction, a comment, a text or a CDATA section.
 *
 *  Items never change. The setters put a new item in the place of the caller's reference. */
#ifndef XML_XML_ITEM_H
#define XML_XML_ITEM_H

#include "xml/xml_cdata.h"
#include "xml/xml_comment.h"
#include "xml/xml_item_type.h"
#include "xml/xml_processing_instruction.h"
#include "xml/xml_text.h"

VO_BEGIN_DECLS

typedef struct XML_ITEM XML_ITEM;       /**< A child node. */
typedef struct XML_ELEMENT XML_ELEMENT; /**< See xml_element.h, which includes this. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlItemSort(void);
VO_API XML_ITEM *xmlItemRetain(XML_ITEM *obj);
VO_API void xmlItemRelease(XML_ITEM *obj);
VO_API voObj *xmlItemObj(XML_ITEM *obj);
VO_API XML_ITEM *xmlItemFrom(voObj *obj);
VO_NEW voString *xmlItemToString(XML_ITEM *obj);
VO_API int64_t xmlItemCompare(XML_ITEM *objA, XML_ITEM *objB);
VO_API int xmlItemEquals(XML_ITEM *objA, XML_ITEM *objB);
VO_NEW XML_ITEM *xmlItemCreateFrom(XML_ITEM *source);
/** @} */

/** @name Construction
 *  An item that holds the given node, or a new text made as xmlTextCreateValue() and
 *  xmlTextCreateEscape() make it. @{ */
VO_NEW XML_ITEM *xmlItemCreateElement(XML_ELEMENT *el);
VO_NEW XML_ITEM *xmlItemCreateProcessingInstruction(XML_PROCESSING_INSTRUCTION *pi);
VO_NEW XML_ITEM *xmlItemCreateComment(XML_COMMENT *comment);
VO_NEW XML_ITEM *xmlItemCreateText(XML_TEXT *text);
VO_NEW XML_ITEM *xmlItemCreateTextValue(voString *value);
VO_NEW XML_ITEM *xmlItemCreateTextEscape(voString *vos);
VO_NEW XML_ITEM *xmlItemCreateCdata(XML_CDATA *cdata);
/** @} */

/** What the item holds. */
VO_API XML_ITEM_TYPE xmlItemType(XML_ITEM *item);

/** @name Tests
 *  Whether the item holds a node of this kind. @{ */
VO_API int xmlItemIsElement(XML_ITEM *item);
VO_API int xmlItemIsProcessingInstruction(XML_ITEM *item);
VO_API int xmlItemIsComment(XML_ITEM *item);
VO_API int xmlItemIsText(XML_ITEM *item);
VO_API int xmlItemIsCdata(XML_ITEM *item);
/** @} */

/** @name Content
 *  The node, or its text as a string: ...TextValue in escaped form, ...TextTryUnescape with
 *  references resolved (see xmlTextTryUnescape()). Null when the item holds a node of another
 *  kind. @{ */
VO_NEW XML_ELEMENT *xmlItemElement(XML_ITEM *item);
VO_NEW XML_PROCESSING_INSTRUCTION *xmlItemProcessingInstruction(XML_ITEM *item);
VO_NEW XML_COMMENT *xmlItemComment(XML_ITEM *item);
VO_NEW XML_TEXT *xmlItemText(XML_ITEM *item);
VO_NEW voString *xmlItemTextValue(XML_ITEM *item);
VO_NEW voString *xmlItemTextTryUnescape(XML_ITEM *item);
VO_NEW XML_CDATA *xmlItemCdata(XML_ITEM *item);
/** @} */

/** @name Replacement
 *  Makes the caller's reference a new item with this content, of whatever kind the old one was.
 *  Other holders keep the old item. `value` is in escaped form, `vos` in plain characters. @{ */
VO_API void xmlItemSetElement(XML_ITEM **item, XML_ELEMENT *el);
VO_API void xmlItemSetProcessingInstruction(XML_ITEM **item, XML_PROCESSING_INSTRUCTION *pi);
VO_API void xmlItemSetComment(XML_ITEM **item, XML_COMMENT *comment);
VO_API void xmlItemSetText(XML_ITEM **item, XML_TEXT *text);
VO_API void xmlItemSetTextValue(XML_ITEM **item, voString *value);
VO_API void xmlItemSetTextEscape(XML_ITEM **item, voString *vos);
VO_API void xmlItemSetCdata(XML_ITEM **item, XML_CDATA *cdata);
/** @} */

VO_END_DECLS

#endif
