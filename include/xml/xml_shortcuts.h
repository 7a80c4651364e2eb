/** @file
 *  Short ways to what programs ask for most, for both layers: the root element, a child by name,
 *  text and attribute values as UTF-8, one element as bytes, and elements taken out of a tree to be
 *  changed without a copy.
 *
 *  Names are UTF-8 up to a NUL, as C has them in its literals; one that is ill-formed is found
 *  nowhere. In a namespace tree a name is a local name and a namespace; null for the namespace
 *  stands for none.
 *
 *      XML_ELEMENT *root = xmlDocumentRoot(doc);
 *      XML_ELEMENT *title = root ? xmlElementChild(root, "title") : NULL;
 *      char *text = title ? xmlElementTryContentUtf8(title, NULL) : NULL;
 *      if (text) puts(text);
 *      voMemFree(text);
 *      if (title) xmlElementRelease(title);
 *      if (root) xmlElementRelease(root); */
#ifndef XML_XML_SHORTCUTS_H
#define XML_XML_SHORTCUTS_H

#include "vo/vo.h"
#include "xml/xml_document.h"
#include "xml/xml_element.h"
#include "xml/xml_ns_document.h"
#include "xml/xml_ns_element.h"

VO_BEGIN_DECLS

/** @name Finding elements
 *  No objects are made on the way but the items among which the element is. @{ */

/** The first element at the top of the document, or null when there is none. */
VO_NEW XML_ELEMENT *xmlDocumentRoot(XML_DOCUMENT *doc);
VO_NEW XML_NS_ELEMENT *xmlNsDocumentRoot(XML_NS_DOCUMENT *doc);

/** The first child element of that name, or null when there is none. */
VO_NEW XML_ELEMENT *xmlElementChild(XML_ELEMENT *el, const char *name);
VO_NEW XML_NS_ELEMENT *xmlNsElementChild(XML_NS_ELEMENT *el, const char *localName,
                                         const char *optionalNs);

/** The index, among the items of `el`, of the first child element of that name at or after `from`;
 *  -1 when there is none. `from` may lie at or behind the end, where nothing is found; a negative
 *  one aborts. So all children of a name are found one after another in time in proportion to the
 *  number of items. The functions that end in Utf8 take the names' lengths in bytes, so that a name
 *  may hold NULs; -1 stands for up to one. */
VO_API int64_t xmlElementFindChild(XML_ELEMENT *el, int64_t from, const char *name);
VO_API int64_t xmlNsElementFindChild(XML_NS_ELEMENT *el, int64_t from, const char *localName,
                                     const char *optionalNs);
VO_API int64_t xmlElementFindChildUtf8(XML_ELEMENT *el, int64_t from, const char *name,
                                       int64_t length);
VO_API int64_t xmlNsElementFindChildUtf8(XML_NS_ELEMENT *el, int64_t from, const char *localName,
                                         int64_t length, const char *optionalNs, int64_t nsLength);
/** @} */

/** @name Text content
 *  The texts and CDATA sections below an element at any depth, in document order and joined, with
 *  the references of the texts resolved. Comments and processing instructions are left out. Null
 *  when a text refers to an entity that is not predefined. Makes no objects of the tree. A code
 *  point that UTF-8 cannot express, which only hand-made strings hold, becomes U+FFFD. @{ */
VO_NEW voString *xmlElementTryContent(XML_ELEMENT *el);
VO_NEW voString *xmlNsElementTryContent(XML_NS_ELEMENT *el);

/** The same as a block of UTF-8 with a NUL behind it, which the caller frees with voMemFree(). Its
 *  length in bytes, the NUL not counted, is stored unless the pointer is null; the text itself may
 *  hold U+0000. */
VO_NEW char *xmlElementTryContentUtf8(XML_ELEMENT *el, int64_t *optionalLength);
VO_NEW char *xmlNsElementTryContentUtf8(XML_NS_ELEMENT *el, int64_t *optionalLength);
/** @} */

/** @name Attribute values
 *  The value with its references resolved, as a block of UTF-8 with a NUL behind it, which the
 *  caller frees with voMemFree(). Null when the element has no such attribute, and when the value
 *  refers to an entity that is not predefined. A code point that UTF-8 cannot express, such as a
 *  surrogate that a reference gives, becomes U+FFFD. The length in bytes, the NUL not counted, is
 *  stored unless the pointer or the result is null. @{ */
VO_NEW char *xmlElementAttributeTryUtf8(XML_ELEMENT *el, const char *name, int64_t *optionalLength);
VO_NEW char *xmlNsElementAttributeTryUtf8(XML_NS_ELEMENT *el, const char *localName,
                                          const char *optionalNs, int64_t *optionalLength);
/** @} */

/** @name One element as bytes
 *  The element in the canonical layout and in a character set, which must be a known one (0 to 50),
 *  without an XML declaration; null when the character set cannot hold it. In a namespace tree the
 *  element is written as the root of a document would be, see xmlNsDocumentEncode(): it declares
 *  the namespaces that no map in it declares. @{ */
VO_NEW voBuffer *xmlElementTryEncode(XML_ELEMENT *el, voCharset charset);
VO_NEW voBuffer *xmlNsElementTryEncode(XML_NS_ELEMENT *el, voCharset charset);
/** @} */

/** @name Taking out and putting back
 *  Whoever gets a child, changes it and sets it pays for a copy, since the parent holds the child
 *  meanwhile. Taking moves the child out: where nobody else holds the parent, its list of items,
 *  the item and the child, taking, changing and putting back copy nothing and take constant time.
 *  What somebody else holds is copied as everywhere, and nobody else sees a change. A decode result
 *  holds its document until it is released.
 *
 *      XML_ELEMENT *child = xmlElementTakeItemElementAt(&parent, index);
 *      xmlElementSetName(&child, name);
 *      xmlElementSetItemElementAt(&parent, index, child);
 *      xmlElementRelease(child);
 *
 *  In the place of what was taken an empty text stands, one and the same item everywhere in a
 *  layer, so that indexes stay valid and nothing is written there. It counts as an item. To
 *  remove an element for good use xmlElementDelItemAt(). To change all elements at the top of a
 *  document so, get its items, give the document an empty list, take from the items, and set them
 *  again. @{ */

/** Takes the element at `index` among the items; null, with no change, when another item is there.
 *  An index outside the list aborts. */
VO_NEW XML_ELEMENT *xmlElementTakeItemElementAt(XML_ELEMENT **el, int64_t index);
VO_NEW XML_NS_ELEMENT *xmlNsElementTakeItemElementAt(XML_NS_ELEMENT **el, int64_t index);
VO_NEW XML_ELEMENT *xmlItemsTakeItemElementAt(XML_ITEMS **items, int64_t index);
VO_NEW XML_NS_ELEMENT *xmlNsItemsTakeItemElementAt(XML_NS_ITEMS **items, int64_t index);

/** Takes the first element at the top of the document; null, with no change, when there is none. */
VO_NEW XML_ELEMENT *xmlDocumentTakeRoot(XML_DOCUMENT **doc);
VO_NEW XML_NS_ELEMENT *xmlNsDocumentTakeRoot(XML_NS_DOCUMENT **doc);

/** Puts an element in the place of the first element at the top of the document, or of one that was
 *  taken, whichever comes first; behind all items when there is neither. So put a root back before
 *  the next one is taken. */
VO_API void xmlDocumentSetRoot(XML_DOCUMENT **doc, XML_ELEMENT *root);
VO_API void xmlNsDocumentSetRoot(XML_NS_DOCUMENT **doc, XML_NS_ELEMENT *root);
/** @} */

VO_END_DECLS

#endif
