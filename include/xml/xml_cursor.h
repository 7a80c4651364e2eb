/** @file
 *  A cursor: reads a tree of either layer without making or counting its objects.
 *
 *  A cursor stands on a node: the one that it was made for, or an item or an attribute below it.
 *  It reads decoded, changed and hand-made trees alike. Where nobody has asked for a decoded tree's
 *  objects it reads the text that was decoded, which is several times faster than the getters, and
 *  it makes none. Of a document that came from xmlNsDocumentEncode() the first step makes all
 *  items.
 *
 *      XML_CURSOR *cursor = xmlCursorCreate(doc);
 *      for (int found = xmlCursorFirstChild(cursor); found; found = xmlCursorNext(cursor))
 *          if (xmlCursorType(cursor) == XML_ITEM_TYPE_ELEMENT) visit(xmlCursorName(cursor));
 *      xmlCursorRelease(cursor);
 *
 *  Unlike the objects of a tree a cursor is changed in place: whoever shares it sees it move. It is
 *  for one thread at a time, reading included; any number of cursors may read one tree at once. It
 *  keeps what it was made for. Steps take constant time, to the first child that of passing the
 *  attributes. A cursor gives no objects: for the joined text of an element collect its texts and
 *  CDATA sections, or see xml/xml_shortcuts.h. */
#ifndef XML_XML_CURSOR_H
#define XML_XML_CURSOR_H

#include "vo/vo_location.h"
#include "xml/xml_document.h"
#include "xml/xml_ns_document.h"

VO_BEGIN_DECLS

typedef struct XML_CURSOR XML_CURSOR; /**< A cursor. */

/** What xmlCursorType() gives, beside the item types, for a cursor on the document or on an
 *  attribute. */
#define XML_CURSOR_TYPE_DOCUMENT ((XML_ITEM_TYPE)5)
#define XML_CURSOR_TYPE_ATTRIBUTE ((XML_ITEM_TYPE)6)

/** A run of UTF-8: `length` bytes at `bytes`, without a NUL behind them. `bytes` is null where
 *  there is no such text, and not null for an empty one. The bytes stay valid, beside those of
 *  other calls, until the cursor moves or is released; see also xmlCursorKeptText(). A code point
 *  that UTF-8 cannot express, from a hand-made string or a reference to a surrogate, reads as
 *  U+FFFD. */
typedef struct XML_UTF8 {
    const char *bytes;
    int64_t length;
} XML_UTF8;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlCursorSort(void);
VO_API XML_CURSOR *xmlCursorRetain(XML_CURSOR *cursor);
VO_API void xmlCursorRelease(XML_CURSOR *cursor);
VO_API voObj *xmlCursorObj(XML_CURSOR *cursor);
VO_API XML_CURSOR *xmlCursorFrom(voObj *obj);
VO_NEW voString *xmlCursorToString(XML_CURSOR *cursor);
VO_API int64_t xmlCursorCompare(XML_CURSOR *cursorA, XML_CURSOR *cursorB);
VO_API int xmlCursorEquals(XML_CURSOR *cursorA, XML_CURSOR *cursorB);
/** @} */

/** A second cursor on the same node, which moves on its own. It knows the same way up, and takes
 *  time and memory for each level of that. */
VO_NEW XML_CURSOR *xmlCursorCreateFrom(XML_CURSOR *source);

/** @name Making a cursor
 *  It stands on the document or node, which it does not leave: there it has no next node and no
 *  parent. @{ */
VO_NEW XML_CURSOR *xmlCursorCreate(XML_DOCUMENT *doc);
VO_NEW XML_CURSOR *xmlCursorCreateElement(XML_ELEMENT *el);
VO_NEW XML_CURSOR *xmlCursorCreateNs(XML_NS_DOCUMENT *doc);
VO_NEW XML_CURSOR *xmlCursorCreateNsElement(XML_NS_ELEMENT *el);

/** For the node on which `source` stands, in constant time and memory however deep that lies. */
VO_NEW XML_CURSOR *xmlCursorCreateHere(XML_CURSOR *source);
/** @} */

/** @name Moving
 *  Each gives 1 when it has moved the cursor, and 0 when there is no such node and the cursor stays
 *  where it is. An element's attributes are not among its children. @{ */

/** To the first item of the document or element. */
VO_API int xmlCursorFirstChild(XML_CURSOR *cursor);
/** To the first attribute of the element. In a namespace tree declarations are none. */
VO_API int xmlCursorFirstAttribute(XML_CURSOR *cursor);
/** From an item to the next one with the same parent, from an attribute to the next of the same
 *  element. */
VO_API int xmlCursorNext(XML_CURSOR *cursor);
/** To the document or element that holds the node. */
VO_API int xmlCursorParent(XML_CURSOR *cursor);
/** @} */

/** What the cursor stands on: the type of the item, or one of the two constants above. */
VO_API XML_ITEM_TYPE xmlCursorType(XML_CURSOR *cursor);

/** The name of an element or attribute: as it was written in a plain tree, the local name in a
 *  namespace tree. Other nodes have none. */
VO_API XML_UTF8 xmlCursorName(XML_CURSOR *cursor);

/** The namespace of an element or attribute of a namespace tree, where it has one. */
VO_API XML_UTF8 xmlCursorNamespace(XML_CURSOR *cursor);

/** The value of an attribute or of an item that is no element, as it is stored: texts and attribute
 *  values are escaped. Elements and the document have none. */
VO_API XML_UTF8 xmlCursorValue(XML_CURSOR *cursor);

/** The same with the references of texts and attribute values resolved, as xmlTextTryUnescape()
 *  does it: none where the value refers to an entity that is not predefined. */
VO_API XML_UTF8 xmlCursorValueTryUnescape(XML_CURSOR *cursor);

/** The text that the cursor keeps as long as it exists: what it gives and lies in there stays valid
 *  until the cursor is released, wherever that moves. None where it keeps no such text; a cursor
 *  that stands on an object may get one later on, and never another one after that. */
VO_API XML_UTF8 xmlCursorKeptText(XML_CURSOR *cursor);

/** Where the node stands in what was decoded, if that was recorded; then the result is 1 and the
 *  numbers, each of which may be asked for with a pointer that is not null, are those of the node's
 *  location: code points from 0, line and column from 1. Otherwise the result is 0 and nothing is
 *  written. Going on in document order, this takes time in proportion to the way between. */
VO_API int xmlCursorLocation(XML_CURSOR *cursor, int64_t *optionalOffset, int64_t *optionalLine,
                             int64_t *optionalColumn);

VO_END_DECLS

#endif
