/** @file
 *  One attribute of an element: a name and a text. Names hold what the document writes, prefix and
 *  colon included; nothing here looks for prefixes. */
#ifndef XML_XML_ATTRIBUTE_H
#define XML_XML_ATTRIBUTE_H

#include "xml/xml_text.h"

VO_BEGIN_DECLS

typedef struct XML_ATTRIBUTE XML_ATTRIBUTE; /**< An attribute. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlAttributeSort(void);
VO_API XML_ATTRIBUTE *xmlAttributeRetain(XML_ATTRIBUTE *obj);
VO_API void xmlAttributeRelease(XML_ATTRIBUTE *obj);
VO_API voObj *xmlAttributeObj(XML_ATTRIBUTE *obj);
VO_API XML_ATTRIBUTE *xmlAttributeFrom(voObj *obj);
VO_NEW voString *xmlAttributeToString(XML_ATTRIBUTE *obj);
VO_API int64_t xmlAttributeCompare(XML_ATTRIBUTE *objA, XML_ATTRIBUTE *objB);
VO_API int xmlAttributeEquals(XML_ATTRIBUTE *objA, XML_ATTRIBUTE *objB);
VO_NEW XML_ATTRIBUTE *xmlAttributeCreateFrom(XML_ATTRIBUTE *source);
/** @} */

/** @name Construction
 *  `name` must satisfy xmlValueNameOk(). The text is empty, the given object itself, or made as
 *  xmlTextCreateValue() and xmlTextCreateEscape() make it. @{ */
VO_NEW XML_ATTRIBUTE *xmlAttributeCreate(voString *name);
VO_NEW XML_ATTRIBUTE *xmlAttributeCreateText(voString *name, XML_TEXT *text);
VO_NEW XML_ATTRIBUTE *xmlAttributeCreateTextValue(voString *name, voString *value);
VO_NEW XML_ATTRIBUTE *xmlAttributeCreateTextEscape(voString *name, voString *vos);
/** @} */

/** The name. */
VO_NEW voString *xmlAttributeName(XML_ATTRIBUTE *attr);

/** Renames the attribute; `name` must satisfy xmlValueNameOk(). */
VO_API void xmlAttributeSetName(XML_ATTRIBUTE **attr, voString *name);

/** @name Text
 *  The value. The getters and setters of the text's content work as those of xml_text.h; setting
 *  the content leaves other holders of the text object alone. @{ */
VO_NEW XML_TEXT *xmlAttributeText(XML_ATTRIBUTE *attr);
VO_NEW voString *xmlAttributeTextValue(XML_ATTRIBUTE *attr);
VO_NEW voString *xmlAttributeTextTryUnescape(XML_ATTRIBUTE *attr);
VO_API void xmlAttributeSetText(XML_ATTRIBUTE **attr, XML_TEXT *text);
VO_API void xmlAttributeSetTextValue(XML_ATTRIBUTE **attr, voString *value);
VO_API void xmlAttributeSetTextEscape(XML_ATTRIBUTE **attr, voString *vos);
/** @} */

/** @name Location
 *  Where the attribute begins in the decoded input, see XML_FLAG_DECODE_LOCATION; null when that
 *  was not recorded. @{ */
VO_NEW voParserLocation *xmlAttributeLocation(XML_ATTRIBUTE *attr);
VO_API int xmlAttributeHasLocation(XML_ATTRIBUTE *attr);
VO_API void xmlAttributeSetLocation(XML_ATTRIBUTE **attr, voParserLocation *loc);
VO_API void xmlAttributeDelLocation(XML_ATTRIBUTE **attr);
/** @} */

VO_END_DECLS

#endif
