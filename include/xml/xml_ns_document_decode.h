/** @file
 *  From a plain document to one with namespaces. */
#ifndef XML_XML_NS_DOCUMENT_DECODE_H
#define XML_XML_NS_DOCUMENT_DECODE_H

#include "xml/xml_document.h"
#include "xml/xml_ns_decode_result.h"

VO_BEGIN_DECLS

/** Resolves the names of a document as Namespaces in XML 1.0 describes.
 *
 *  The attributes `xmlns` and `xmlns:p` become the namespace map of their element. Every name
 *  becomes a local name and a namespace name or none. An element's name without a prefix is in
 *  the default namespace; an attribute's never is. Of two attributes that come to the same name
 *  only the later one is kept. All else, character data, attribute values and locations, is shared
 *  with `doc`, which does not change.
 *
 *  An element that goes from one document to another keeps its names, and leaves the declarations
 *  around it behind: prefixes are found anew when it is written, and prefixes in its texts and
 *  values mean what its new place declares. To keep those, give it a map of what was in scope
 *  (xmlNsElementSetNamespaceMap()).
 *
 *  The prefix "xml" stands for its reserved namespace whatever the document declares. A prefix
 *  declared with an empty value stands for no namespace.
 *
 *  The result, never null, holds the document or the first error in document order: in an element
 *  its declarations come first, then its own name, its attributes and its content. Time and memory
 *  are linear in the size of `doc`, however deep it nests. */
VO_NEW XML_NS_DECODE_RESULT *xmlNsDocumentTryDecode(XML_DOCUMENT *doc);

VO_END_DECLS

#endif
