/** @file
 *  One attribute whose name is resolved: a local name, an optional namespace and a text. */
#ifndef XML_XML_NS_ATTRIBUTE_H
#define XML_XML_NS_ATTRIBUTE_H

#include "xml/xml_text.h"

VO_BEGIN_DECLS

typedef struct XML_NS_ATTRIBUTE XML_NS_ATTRIBUTE; /**< An attribute with a resolved name. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlNsAttributeSort(void);
VO_API XML_NS_ATTRIBUTE *xmlNsAttributeRetain(XML_NS_ATTRIBUTE *obj);
VO_API void xmlNsAttributeRelease(XML_NS_ATTRIBUTE *obj);
VO_API voObj *xmlNsAttributeObj(XML_NS_ATTRIBUTE *obj);
VO_API XML_NS_ATTRIBUTE *xmlNsAttributeFrom(voObj *obj);
VO_NEW voString *xmlNsAttributeToString(XML_NS_ATTRIBUTE *obj);
VO_API int64_t xmlNsAttributeCompare(XML_NS_ATTRIBUTE *objA, XML_NS_ATTRIBUTE *objB);
VO_API int xmlNsAttributeEquals(XML_NS_ATTRIBUTE *objA, XML_NS_ATTRIBUTE *objB);
VO_NEW XML_NS_ATTRIBUTE *xmlNsAttributeCreateFrom(XML_NS_ATTRIBUTE *source);
/** @} */

/** @name Construction
 *  `localName` must satisfy xmlNsValueLocalNameOk() and `optionalNs`, unless null,
 *  xmlNsValueNamespaceOk(). The text is empty, the given object itself, or made as
 *  xmlTextCreateValue() and xmlTextCreateEscape() make it. One called "xmlns" and without a
 *  namespace is possible, but written it is a declaration. @{ */
VO_NEW XML_NS_ATTRIBUTE *xmlNsAttributeCreate(voString *localName, voString *optionalNs);
VO_NEW XML_NS_ATTRIBUTE *xmlNsAttributeCreateText(voString *localName, voString *optionalNs,
                                                  XML_TEXT *text);
VO_NEW XML_NS_ATTRIBUTE *xmlNsAttributeCreateTextValue(voString *localName, voString *optionalNs,
                                                       voString *value);
VO_NEW XML_NS_ATTRIBUTE *xmlNsAttributeCreateTextEscape(voString *localName, voString *optionalNs,
                                                        voString *vos);
/** @} */

/** @name Name
 *  The local name and the namespace, which is null when the attribute is in none. Setting both
 *  with a null namespace removes it. The checks are those of xmlNsAttributeCreate(). @{ */
VO_API void xmlNsAttributeSetName(XML_NS_ATTRIBUTE **attr, voString *localName,
                                  voString *optionalNs);
VO_NEW voString *xmlNsAttributeLocalName(XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsAttributeSetLocalName(XML_NS_ATTRIBUTE **attr, voString *localName);
VO_NEW voString *xmlNsAttributeNamespace(XML_NS_ATTRIBUTE *attr);
VO_API int xmlNsAttributeHasNamespace(XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsAttributeSetNamespace(XML_NS_ATTRIBUTE **attr, voString *ns);
VO_API void xmlNsAttributeDelNamespace(XML_NS_ATTRIBUTE **attr);
/** @} */

/** @name Text
 *  The value. The getters and setters of the text's content work as those of xml_text.h; setting
 *  the content leaves other holders of the text object alone. @{ */
VO_NEW XML_TEXT *xmlNsAttributeText(XML_NS_ATTRIBUTE *attr);
VO_NEW voString *xmlNsAttributeTextValue(XML_NS_ATTRIBUTE *attr);
VO_NEW voString *xmlNsAttributeTextTryUnescape(XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsAttributeSetText(XML_NS_ATTRIBUTE **attr, XML_TEXT *text);
VO_API void xmlNsAttributeSetTextValue(XML_NS_ATTRIBUTE **attr, voString *value);
VO_API void xmlNsAttributeSetTextEscape(XML_NS_ATTRIBUTE **attr, voString *vos);
/** @} */

/** @name Location
 *  Where the attribute begins in the decoded input, see XML_FLAG_DECODE_LOCATION; null when that
 *  was not recorded. @{ */
VO_NEW voParserLocation *xmlNsAttributeLocation(XML_NS_ATTRIBUTE *attr);
VO_API int xmlNsAttributeHasLocation(XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsAttributeSetLocation(XML_NS_ATTRIBUTE **attr, voParserLocation *loc);
VO_API void xmlNsAttributeDelLocation(XML_NS_ATTRIBUTE **attr);
/** @} */

VO_END_DECLS

#endif
