/** @file
 *  The attributes of an element, in order.
 *
 *  No two attributes of a list have the same name: placing an attribute removes another one that
 *  has its name, wherever that stands. Names are compared code point by code point. Indexes count
 *  from 0; an index outside the list aborts. Finding a name, placing and removing take time in
 *  proportion to the length of the list; xmlAttributesSetVector() places many at once. */
#ifndef XML_XML_ATTRIBUTES_H
#define XML_XML_ATTRIBUTES_H

#include "xml/xml_attribute.h"

VO_BEGIN_DECLS

typedef struct XML_ATTRIBUTES XML_ATTRIBUTES; /**< A list of attributes. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlAttributesSort(void);
VO_API XML_ATTRIBUTES *xmlAttributesRetain(XML_ATTRIBUTES *obj);
VO_API void xmlAttributesRelease(XML_ATTRIBUTES *obj);
VO_API voObj *xmlAttributesObj(XML_ATTRIBUTES *obj);
VO_API XML_ATTRIBUTES *xmlAttributesFrom(voObj *obj);
VO_NEW voString *xmlAttributesToString(XML_ATTRIBUTES *obj);
VO_API int64_t xmlAttributesCompare(XML_ATTRIBUTES *objA, XML_ATTRIBUTES *objB);
VO_API int xmlAttributesEquals(XML_ATTRIBUTES *objA, XML_ATTRIBUTES *objB);
VO_NEW XML_ATTRIBUTES *xmlAttributesCreateFrom(XML_ATTRIBUTES *source);
/** @} */

/** Makes an empty list. */
VO_NEW XML_ATTRIBUTES *xmlAttributesCreate(void);

/** The number of attributes. */
VO_API int64_t xmlAttributesLength(XML_ATTRIBUTES *attrs);

/** The attributes as a vector of XML_ATTRIBUTE. */
VO_NEW voVector *xmlAttributesVector(XML_ATTRIBUTES *attrs);

/** Replaces the whole content. Every object of `vec` must be an XML_ATTRIBUTE; of several
 *  with the same name only the last one is taken, at its place. */
VO_API void xmlAttributesSetVector(XML_ATTRIBUTES **attrs, voVector *vec);

/** Removes all attributes. */
VO_API void xmlAttributesClear(XML_ATTRIBUTES **attrs);

/** @name Another list's attributes
 *  Places all attributes of `others`, in order, before the one at `index`, which may equal the
 *  length; first; or last. What the list held under one of their names goes. `others` may be the
 *  list itself. @{ */
VO_API void xmlAttributesInsert(XML_ATTRIBUTES **attrs, int64_t index, XML_ATTRIBUTES *others);
VO_API void xmlAttributesPrepend(XML_ATTRIBUTES **attrs, XML_ATTRIBUTES *others);
VO_API void xmlAttributesAppend(XML_ATTRIBUTES **attrs, XML_ATTRIBUTES *others);
/** @} */

/** @name By index
 *  The attribute at `index` and its parts, each as xmlAttribute... of that name gives it:
 *  ...TextValueAt in escaped form, ...TextTryUnescapeAt with references resolved. @{ */
VO_NEW XML_ATTRIBUTE *xmlAttributesAttributeAt(XML_ATTRIBUTES *attrs, int64_t index);
VO_NEW voString *xmlAttributesAttributeNameAt(XML_ATTRIBUTES *attrs, int64_t index);
VO_NEW XML_TEXT *xmlAttributesAttributeTextAt(XML_ATTRIBUTES *attrs, int64_t index);
VO_NEW voString *xmlAttributesAttributeTextValueAt(XML_ATTRIBUTES *attrs, int64_t index);
VO_NEW voString *xmlAttributesAttributeTextTryUnescapeAt(XML_ATTRIBUTES *attrs, int64_t index);
/** @} */

/** @name Replacing by index
 *  Puts an attribute in the place of the one at `index`: the given one, or the present one with
 *  another name, another text or both. Another attribute of the name that it then has goes, which
 *  moves those behind that. `value` is in escaped form, `vos` in plain characters. @{ */
VO_API void xmlAttributesSetAttributeAt(XML_ATTRIBUTES **attrs, int64_t index, XML_ATTRIBUTE *attr);
VO_API void xmlAttributesSetAttributeNameAt(XML_ATTRIBUTES **attrs, int64_t index, voString *name);
VO_API void xmlAttributesSetAttributeTextAt(XML_ATTRIBUTES **attrs, int64_t index, XML_TEXT *text);
VO_API void xmlAttributesSetAttributeTextValueAt(XML_ATTRIBUTES **attrs, int64_t index,
                                                 voString *value);
VO_API void xmlAttributesSetAttributeTextEscapeAt(XML_ATTRIBUTES **attrs, int64_t index,
                                                  voString *vos);
VO_API void xmlAttributesSetAttributeNameTextAt(XML_ATTRIBUTES **attrs, int64_t index,
                                                voString *name, XML_TEXT *text);
VO_API void xmlAttributesSetAttributeNameTextValueAt(XML_ATTRIBUTES **attrs, int64_t index,
                                                     voString *name, voString *value);
VO_API void xmlAttributesSetAttributeNameTextEscapeAt(XML_ATTRIBUTES **attrs, int64_t index,
                                                      voString *name, voString *vos);
/** @} */

/** Removes the attribute at `index`. */
VO_API void xmlAttributesDelAttributeAt(XML_ATTRIBUTES **attrs, int64_t index);

/** @name Placing one attribute
 *  Before the attribute at `index`, which may equal the length; first; or last. The attribute is
 *  the given one or a new one. `value` is in escaped form, `vos` in plain characters. @{ */
VO_API void xmlAttributesInsertAttribute(XML_ATTRIBUTES **attrs, int64_t index,
                                         XML_ATTRIBUTE *attr);
VO_API void xmlAttributesInsertAttributeNameText(XML_ATTRIBUTES **attrs, int64_t index,
                                                 voString *name, XML_TEXT *text);
VO_API void xmlAttributesInsertAttributeNameTextValue(XML_ATTRIBUTES **attrs, int64_t index,
                                                      voString *name, voString *value);
VO_API void xmlAttributesInsertAttributeNameTextEscape(XML_ATTRIBUTES **attrs, int64_t index,
                                                       voString *name, voString *vos);
VO_API void xmlAttributesPrependAttribute(XML_ATTRIBUTES **attrs, XML_ATTRIBUTE *attr);
VO_API void xmlAttributesPrependAttributeNameText(XML_ATTRIBUTES **attrs, voString *name,
                                                  XML_TEXT *text);
VO_API void xmlAttributesPrependAttributeNameTextValue(XML_ATTRIBUTES **attrs, voString *name,
                                                       voString *value);
VO_API void xmlAttributesPrependAttributeNameTextEscape(XML_ATTRIBUTES **attrs, voString *name,
                                                        voString *vos);
VO_API void xmlAttributesAppendAttribute(XML_ATTRIBUTES **attrs, XML_ATTRIBUTE *attr);
VO_API void xmlAttributesAppendAttributeNameText(XML_ATTRIBUTES **attrs, voString *name,
                                                 XML_TEXT *text);
VO_API void xmlAttributesAppendAttributeNameTextValue(XML_ATTRIBUTES **attrs, voString *name,
                                                      voString *value);
VO_API void xmlAttributesAppendAttributeNameTextEscape(XML_ATTRIBUTES **attrs, voString *name,
                                                       voString *vos);
/** @} */

/** @name By name
 *  The attribute with this name, its text object, or the text as a string: ...TextValue in escaped
 *  form, ...TextTryUnescape with references resolved, where null may also mean that one cannot be
 *  (see xmlTextTryUnescape()). Null when there is none. `name` must satisfy xmlValueNameOk(). @{ */
VO_NEW XML_ATTRIBUTE *xmlAttributesAttribute(XML_ATTRIBUTES *attrs, voString *name);
VO_NEW XML_TEXT *xmlAttributesAttributeText(XML_ATTRIBUTES *attrs, voString *name);
VO_NEW voString *xmlAttributesAttributeTextValue(XML_ATTRIBUTES *attrs, voString *name);
VO_NEW voString *xmlAttributesAttributeTextTryUnescape(XML_ATTRIBUTES *attrs, voString *name);
VO_API int xmlAttributesHasAttribute(XML_ATTRIBUTES *attrs, voString *name);
/** @} */

/** @name Setting by name
 *  Replaces the attribute that has the same name, in its place, or appends. `value` is in escaped
 *  form, `vos` in plain characters. @{ */
VO_API void xmlAttributesSetAttribute(XML_ATTRIBUTES **attrs, XML_ATTRIBUTE *attr);
VO_API void xmlAttributesSetAttributeNameText(XML_ATTRIBUTES **attrs, voString *name,
                                              XML_TEXT *text);
VO_API void xmlAttributesSetAttributeNameTextValue(XML_ATTRIBUTES **attrs, voString *name,
                                                   voString *value);
VO_API void xmlAttributesSetAttributeNameTextEscape(XML_ATTRIBUTES **attrs, voString *name,
                                                    voString *vos);
/** @} */

/** Removes the attribute with this name. Without one the list stays the same object. */
VO_API void xmlAttributesDelAttribute(XML_ATTRIBUTES **attrs, voString *name);

VO_END_DECLS

#endif
