/** @file
 *  The attributes of an element whose names are resolved, in order.
 *
 *  What tells attributes apart is the pair of local name and namespace; an absent namespace equals
 *  only an absent one. No two attributes of a list have the same pair: placing an attribute removes
 *  another one that has its pair, wherever that stands. Where a function takes a name, `localName`
 *  must satisfy xmlNsValueLocalNameOk() and `optionalNs`, unless null, xmlNsValueNamespaceOk().
 *  Indexes count from 0; an index outside the list aborts. */
#ifndef XML_XML_NS_ATTRIBUTES_H
#define XML_XML_NS_ATTRIBUTES_H

#include "xml/xml_ns_attribute.h"

VO_BEGIN_DECLS

typedef struct XML_NS_ATTRIBUTES XML_NS_ATTRIBUTES; /**< A list of attributes. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlNsAttributesSort(void);
VO_API XML_NS_ATTRIBUTES *xmlNsAttributesRetain(XML_NS_ATTRIBUTES *obj);
VO_API void xmlNsAttributesRelease(XML_NS_ATTRIBUTES *obj);
VO_API voObj *xmlNsAttributesObj(XML_NS_ATTRIBUTES *obj);
VO_API XML_NS_ATTRIBUTES *xmlNsAttributesFrom(voObj *obj);
VO_NEW voString *xmlNsAttributesToString(XML_NS_ATTRIBUTES *obj);
VO_API int64_t xmlNsAttributesCompare(XML_NS_ATTRIBUTES *objA, XML_NS_ATTRIBUTES *objB);
VO_API int xmlNsAttributesEquals(XML_NS_ATTRIBUTES *objA, XML_NS_ATTRIBUTES *objB);
VO_NEW XML_NS_ATTRIBUTES *xmlNsAttributesCreateFrom(XML_NS_ATTRIBUTES *source);
/** @} */

/** Makes an empty list. */
VO_NEW XML_NS_ATTRIBUTES *xmlNsAttributesCreate(void);

/** The number of attributes. */
VO_API int64_t xmlNsAttributesLength(XML_NS_ATTRIBUTES *attrs);

/** The attributes as a vector of XML_NS_ATTRIBUTE. */
VO_NEW voVector *xmlNsAttributesVector(XML_NS_ATTRIBUTES *attrs);

/** Replaces the whole content. Every object of `vec` must be an XML_NS_ATTRIBUTE; of several
 *  with the same name only the last one is taken, at its place. */
VO_API void xmlNsAttributesSetVector(XML_NS_ATTRIBUTES **attrs, voVector *vec);

/** Removes all attributes. */
VO_API void xmlNsAttributesClear(XML_NS_ATTRIBUTES **attrs);

/** @name Another list's attributes
 *  Places all attributes of `others`, in order, before the one at `index`, which may equal the
 *  length; first; or last. What the list held under one of their names goes. `others` may be the
 *  list itself. @{ */
VO_API void xmlNsAttributesInsert(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                  XML_NS_ATTRIBUTES *others);
VO_API void xmlNsAttributesPrepend(XML_NS_ATTRIBUTES **attrs, XML_NS_ATTRIBUTES *others);
VO_API void xmlNsAttributesAppend(XML_NS_ATTRIBUTES **attrs, XML_NS_ATTRIBUTES *others);
/** @} */

/** @name By index
 *  The attribute at `index` and its parts, each as xmlNsAttribute... of that name gives it:
 *  ...TextValueAt in escaped form, ...TextTryUnescapeAt with references resolved. @{ */
VO_NEW XML_NS_ATTRIBUTE *xmlNsAttributesAttributeAt(XML_NS_ATTRIBUTES *attrs, int64_t index);
VO_NEW voString *xmlNsAttributesAttributeLocalNameAt(XML_NS_ATTRIBUTES *attrs, int64_t index);
VO_NEW voString *xmlNsAttributesAttributeNamespaceAt(XML_NS_ATTRIBUTES *attrs, int64_t index);
VO_API int xmlNsAttributesAttributeHasNamespaceAt(XML_NS_ATTRIBUTES *attrs, int64_t index);
VO_NEW XML_TEXT *xmlNsAttributesAttributeTextAt(XML_NS_ATTRIBUTES *attrs, int64_t index);
VO_NEW voString *xmlNsAttributesAttributeTextValueAt(XML_NS_ATTRIBUTES *attrs, int64_t index);
VO_NEW voString *xmlNsAttributesAttributeTextTryUnescapeAt(XML_NS_ATTRIBUTES *attrs, int64_t index);
/** @} */

/** @name Replacing by index
 *  Puts an attribute in the place of the one at `index`: the given one, or the present one with
 *  another name, another text or both. Another attribute of the name that it then has goes, which
 *  moves those behind that. `value` is in escaped form, `vos` in plain characters. @{ */
VO_API void xmlNsAttributesSetAttributeAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                          XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsAttributesSetAttributeNameAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                              voString *localName, voString *optionalNs);
VO_API void xmlNsAttributesSetAttributeTextAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                              XML_TEXT *text);
VO_API void xmlNsAttributesSetAttributeTextValueAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                   voString *value);
VO_API void xmlNsAttributesSetAttributeTextEscapeAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                    voString *vos);
VO_API void xmlNsAttributesSetAttributeNameTextAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                  voString *localName, voString *optionalNs,
                                                  XML_TEXT *text);
VO_API void xmlNsAttributesSetAttributeNameTextValueAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                       voString *localName, voString *optionalNs,
                                                       voString *value);
VO_API void xmlNsAttributesSetAttributeNameTextEscapeAt(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                        voString *localName, voString *optionalNs,
                                                        voString *vos);
/** @} */

/** Removes the attribute at `index`. */
VO_API void xmlNsAttributesDelAttributeAt(XML_NS_ATTRIBUTES **attrs, int64_t index);

/** @name Placing one attribute
 *  Before the attribute at `index`, which may equal the length; first; or last. The attribute is
 *  the given one or a new one. `value` is in escaped form, `vos` in plain characters. @{ */
VO_API void xmlNsAttributesInsertAttribute(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                           XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsAttributesInsertAttributeNameText(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                   voString *localName, voString *optionalNs,
                                                   XML_TEXT *text);
VO_API void xmlNsAttributesInsertAttributeNameTextValue(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                        voString *localName, voString *optionalNs,
                                                        voString *value);
VO_API void xmlNsAttributesInsertAttributeNameTextEscape(XML_NS_ATTRIBUTES **attrs, int64_t index,
                                                         voString *localName, voString *optionalNs,
                                                         voString *vos);
VO_API void xmlNsAttributesPrependAttribute(XML_NS_ATTRIBUTES **attrs, XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsAttributesPrependAttributeNameText(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                                    voString *optionalNs, XML_TEXT *text);
VO_API void xmlNsAttributesPrependAttributeNameTextValue(XML_NS_ATTRIBUTES **attrs,
                                                         voString *localName, voString *optionalNs,
                                                         voString *value);
VO_API void xmlNsAttributesPrependAttributeNameTextEscape(XML_NS_ATTRIBUTES **attrs,
                                                          voString *localName, voString *optionalNs,
                                                          voString *vos);
VO_API void xmlNsAttributesAppendAttribute(XML_NS_ATTRIBUTES **attrs, XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsAttributesAppendAttributeNameText(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                                   voString *optionalNs, XML_TEXT *text);
VO_API void xmlNsAttributesAppendAttributeNameTextValue(XML_NS_ATTRIBUTES **attrs,
                                                        voString *localName, voString *optionalNs,
                                                        voString *value);
VO_API void xmlNsAttributesAppendAttributeNameTextEscape(XML_NS_ATTRIBUTES **attrs,
                                                         voString *localName, voString *optionalNs,
                                                         voString *vos);
/** @} */

/** @name By name
 *  The attribute with this name, its text object, or the text as a string: ...TextValue in escaped
 *  form, ...TextTryUnescape with references resolved, where null may also mean that one cannot be
 *  (see xmlTextTryUnescape()). Null when there is none. @{ */
VO_NEW XML_NS_ATTRIBUTE *xmlNsAttributesAttribute(XML_NS_ATTRIBUTES *attrs, voString *localName,
                                                  voString *optionalNs);
VO_NEW XML_TEXT *xmlNsAttributesAttributeText(XML_NS_ATTRIBUTES *attrs, voString *localName,
                                              voString *optionalNs);
VO_NEW voString *xmlNsAttributesAttributeTextValue(XML_NS_ATTRIBUTES *attrs, voString *localName,
                                                   voString *optionalNs);
VO_NEW voString *xmlNsAttributesAttributeTextTryUnescape(XML_NS_ATTRIBUTES *attrs,
                                                         voString *localName, voString *optionalNs);
VO_API int xmlNsAttributesHasAttribute(XML_NS_ATTRIBUTES *attrs, voString *localName,
                                       voString *optionalNs);
/** @} */

/** @name Setting by name
 *  Replaces the attribute that has the same name, in its place, or appends. `value` is in escaped
 *  form, `vos` in plain characters. @{ */
VO_API void xmlNsAttributesSetAttribute(XML_NS_ATTRIBUTES **attrs, XML_NS_ATTRIBUTE *attr);
VO_API void xmlNsAttributesSetAttributeNameText(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                                voString *optionalNs, XML_TEXT *text);
VO_API void xmlNsAttributesSetAttributeNameTextValue(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                                     voString *optionalNs, voString *value);
VO_API void xmlNsAttributesSetAttributeNameTextEscape(XML_NS_ATTRIBUTES **attrs,
                                                      voString *localName, voString *optionalNs,
                                                      voString *vos);
/** @} */

/** Removes the attribute with this name. Without one the list stays the same object. */
VO_API void xmlNsAttributesDelAttribute(XML_NS_ATTRIBUTES **attrs, voString *localName,
                                        voString *optionalNs);

VO_END_DECLS

#endif
