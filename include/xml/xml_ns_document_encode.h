/** @file
 *  From a document with namespaces to a plain one. */
#ifndef XML_XML_NS_DOCUMENT_ENCODE_H
#define XML_XML_NS_DOCUMENT_ENCODE_H

#include "xml/xml_document.h"
#include "xml/xml_ns_document.h"

VO_BEGIN_DECLS

/** Gives every name of a document a prefix where it needs one, and the document the declarations
 *  that give every name its namespace back. Never fails and never gives null.
 *
 *  - The map of an element becomes declarations on that element, in its order, behind the other
 *    attributes.
 *  - Namespaces that no map in scope binds get the prefixes a, b, ... z, ba, bb, ..., leaving out
 *    those that a map of the document declares; each element at the top declares them all,
 *    in front of its own map, so that they come first. The same goes for namespaces of attributes
 *    that are bound as default namespace only; elements then take that prefix, too.
 *  - A name takes the earliest binding of its namespace that is in force; a binding that is
 *    declared again counts from there. Elements may take a default namespace, attributes never.
 *  - An element without namespace under a default namespace declares xmlns="", and the elements
 *    in it declare the default namespace anew.
 *  - The prefix "xml" is used without a declaration.
 *
 *  Names that a map spoils by binding "xml" or "xmlns" to something else are written with those
 *  prefixes all the same. Character data and attribute values are shared with `doc`, which does
 *  not change; locations are not carried over. Time and memory are linear in the size of the
 *  result, however deep it nests. */
VO_NEW XML_DOCUMENT *xmlNsDocumentEncode(XML_NS_DOCUMENT *doc);

VO_END_DECLS

#endif
