/** @file
 *  The kinds of child node. Plain and namespace items share them; the values never change. */
#ifndef XML_XML_ITEM_TYPE_H
#define XML_XML_ITEM_TYPE_H

#include "vo/vo.h"

VO_BEGIN_DECLS

/** One of the five values below; xmlCursorType() adds two. */
typedef int64_t XML_ITEM_TYPE;

/** The types. */
enum {
    XML_ITEM_TYPE_ELEMENT = 0,
    XML_ITEM_TYPE_PROCESSING_INSTRUCTION = 1,
    XML_ITEM_TYPE_COMMENT = 2,
    XML_ITEM_TYPE_TEXT = 3,
    XML_ITEM_TYPE_CDATA = 4
};

/** Whether `it` is one of the item types. */
#define XML_ITEM_TYPE_OK(it) ((uint64_t)(it) <= XML_ITEM_TYPE_CDATA)

/** The item type of that name, such as "XML_ITEM_TYPE_TEXT"; -1 for any other name. */
VO_API XML_ITEM_TYPE xmlItemTypeFromString(voString *vos);

/** The name of an item type. */
VO_NEW voString *xmlItemTypeToString(XML_ITEM_TYPE it);

VO_END_DECLS

#endif
