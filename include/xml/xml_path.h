/** @file
 *  Paths: select nodes of a tree by an expression.
 *
 *      XML_PATH *path = xmlPathTryCreate("//dish[@price < 10]/name", -1, NULL, NULL);
 *      XML_CURSOR *cursor = xmlCursorCreate(doc);
 *      XML_SELECTION *selection = xmlPathSelect(path, cursor);
 *      while (xmlSelectionNext(selection)) {
 *          XML_UTF8 text = xmlSelectionText(selection);
 *          printf("%.*s\n", (int)text.length, text.bytes);
 *      }
 *      xmlSelectionRelease(selection);
 *      xmlCursorRelease(cursor);
 *      xmlPathRelease(path);
 *
 *  Paths are written and mean what XPath 1.0 says, of which they are this part:
 *
 *  - Location paths of `/`, `//`, `.`, `..`, `*`, `name`, `p:name`, `p:*`, `@name`, `@*`, `text()`,
 *    `comment()`, `processing-instruction()`, `node()`, and several joined by `|`.
 *  - Conditions in brackets behind names and types of nodes: positions such as `[2]` and
 *    `[last()]`, paths, strings and numbers, `=`, `!=`, `<`, `<=`, `>`, `>=`, `and`, `or`, `-`,
 *    parentheses, and the functions `contains()`, `count()`, `last()`, `not()`, `position()` and
 *    `starts-with()`.
 *  - Beyond XPath 1.0, `{namespace}name` and `{namespace}*`.
 *
 *  Nodes are those of XPath: adjacent texts and CDATA sections are one text node, at the first
 *  piece of which the cursor stands; declarations of namespaces are no attributes. In string values
 *  references are resolved, unless one refers to an entity that is not predefined; such a text or
 *  attribute counts as it is stored. Line ends count as they are stored.
 *
 *  Names are compared by namespace and local name. In a plain tree no name has a namespace, and a
 *  prefix is a part of the name.
 *
 *  Nodes come in document order, none twice, as soon as they are found. Nothing recurses as deep as
 *  a tree. Time is in proportion to the number of nodes that a path leads past, times that of its
 *  steps and conditions, and to the length of string values that are asked for. Comparing two sets
 *  of nodes, counting nodes below with `//` and joining paths from different nodes in a condition
 *  takes its time for each node that is asked about. A path that asks about parents or the top, or
 *  about what is deeper below, numbers the nodes first, which takes eight bytes for each. */
#ifndef XML_XML_PATH_H
#define XML_XML_PATH_H

#include "vo/vo.h"
#include "xml/xml_cursor.h"
#include "xml/xml_ns_namespace_map.h"

VO_BEGIN_DECLS

/** A path that was read. It never changes, so that any number of threads may use it. */
typedef struct XML_PATH XML_PATH;

/** Nodes that a path leads to, one after another. Like a cursor it is changed in place and is for
 *  one thread at a time. */
typedef struct XML_SELECTION XML_SELECTION;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlPathSort(void);
VO_API XML_PATH *xmlPathRetain(XML_PATH *obj);
VO_API void xmlPathRelease(XML_PATH *obj);
VO_API voObj *xmlPathObj(XML_PATH *obj);
VO_API XML_PATH *xmlPathFrom(voObj *obj);
VO_NEW voString *xmlPathToString(XML_PATH *obj);
VO_API int64_t xmlPathCompare(XML_PATH *objA, XML_PATH *objB);
VO_API int xmlPathEquals(XML_PATH *objA, XML_PATH *objB);

VO_API voSort *xmlSelectionSort(void);
VO_API XML_SELECTION *xmlSelectionRetain(XML_SELECTION *obj);
VO_API void xmlSelectionRelease(XML_SELECTION *obj);
VO_API voObj *xmlSelectionObj(XML_SELECTION *obj);
VO_API XML_SELECTION *xmlSelectionFrom(voObj *obj);
VO_NEW voString *xmlSelectionToString(XML_SELECTION *obj);
VO_API int64_t xmlSelectionCompare(XML_SELECTION *objA, XML_SELECTION *objB);
VO_API int xmlSelectionEquals(XML_SELECTION *objA, XML_SELECTION *objB);
/** @} */

/** Why an expression is no path. */
typedef struct XML_PATH_ERROR {
    /** The place in the expression, in bytes from 0. */
    int64_t byteOffset;

    /** What is wrong there; its location counts in the expression. A new reference, which the
     * caller releases. */
    voMessage *message;
} XML_PATH_ERROR;

/** Reads a path. Null when the expression is none, which `optionalError` then describes and which
 *  leaves it alone otherwise. No expression ends the process as long as there is memory.
 *
 *  @param expression UTF-8, `length` bytes long; -1 stands for up to a NUL.
 *  @param optionalBindings the namespaces of prefixes; "xml" is always bound. A prefix that is not
 *         bound is an error. Without bindings a prefix is a part of the name, as plain trees have
 *         it. As in XPath, names without a prefix have no namespace. */
VO_NEW XML_PATH *xmlPathTryCreate(const char *expression, int64_t length,
                                  XML_NS_NAMESPACE_MAP *optionalBindings,
                                  XML_PATH_ERROR *optionalError);

/** Begins to select from the node on which the cursor stands, whatever becomes of the cursor later.
 *  `/` is what the cursor was made for, whether that is a document or not, and it has no parent.
 *  From anywhere below, paths from the top, and those that ask about parents, take time for the way
 *  up. */
VO_NEW XML_SELECTION *xmlPathSelect(XML_PATH *path, XML_CURSOR *cursor);

/** Goes to the next node, the first one to begin with; 0 when there is none left. */
VO_API int xmlSelectionNext(XML_SELECTION *selection);

/** A cursor on the node to which the selection has gone, borrowed: it is that of the selection and
 *  must not be moved; see xmlCursorCreateHere(). Aborts unless xmlSelectionNext() was called and
 *  has just given 1. */
VO_API XML_CURSOR *xmlSelectionCursor(XML_SELECTION *selection);

/** The string value of that node, as XPath defines it: for a document or element its texts, joined.
 *  Never null. The bytes stay valid until the selection is asked for another or goes on. Aborts as
 *  xmlSelectionCursor() does. */
VO_API XML_UTF8 xmlSelectionText(XML_SELECTION *selection);

/** @name The way to the node
 *  For following a selection in another tree of the same items, such as the plain tree that belongs
 *  to one with namespaces. It leads down from the document or node where selecting began or, for a
 *  path that leads up, as far above as it may lead. Both abort as xmlSelectionCursor() does. @{ */

/** How many levels it leads down. */
VO_API int64_t xmlSelectionDepth(XML_SELECTION *selection);

/** The index of the node on a level, from 0, among the items of its parent; an attribute's among
 *  the attributes, as the cursor goes through them. A level outside of the way aborts. */
VO_API int64_t xmlSelectionIndexAt(XML_SELECTION *selection, int64_t level);
/** @} */

VO_END_DECLS

#endif
