/** @file
 *  A document with resolved names: the settings of the XML declaration and the top-level nodes. */
#ifndef XML_XML_NS_DOCUMENT_H
#define XML_XML_NS_DOCUMENT_H

#include "xml/xml_ns_items.h"

VO_BEGIN_DECLS

typedef struct XML_NS_DOCUMENT XML_NS_DOCUMENT; /**< A document with resolved names. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlNsDocumentSort(void);
VO_API XML_NS_DOCUMENT *xmlNsDocumentRetain(XML_NS_DOCUMENT *obj);
VO_API void xmlNsDocumentRelease(XML_NS_DOCUMENT *obj);
VO_API voObj *xmlNsDocumentObj(XML_NS_DOCUMENT *obj);
VO_API XML_NS_DOCUMENT *xmlNsDocumentFrom(voObj *obj);
VO_NEW voString *xmlNsDocumentToString(XML_NS_DOCUMENT *obj);
VO_API int64_t xmlNsDocumentCompare(XML_NS_DOCUMENT *objA, XML_NS_DOCUMENT *objB);
VO_API int xmlNsDocumentEquals(XML_NS_DOCUMENT *objA, XML_NS_DOCUMENT *objB);
VO_NEW XML_NS_DOCUMENT *xmlNsDocumentCreateFrom(XML_NS_DOCUMENT *source);
/** @} */

/** Makes an empty document: version "1.0", character set 44 (UTF-8), not standalone. */
VO_NEW XML_NS_DOCUMENT *xmlNsDocumentCreate(void);

/** The XML version, such as "1.0". */
VO_NEW voString *xmlNsDocumentVersion(XML_NS_DOCUMENT *doc);

/** Sets the XML version, which must satisfy xmlValueVersionNumOk(). */
VO_API void xmlNsDocumentSetVersion(XML_NS_DOCUMENT **doc, voString *version);

/** The character set of the document's byte form. */
VO_API voCharset xmlNsDocumentCharset(XML_NS_DOCUMENT *doc);

/** Sets the character set of the byte form; it must be a known one (0 to 50). */
VO_API void xmlNsDocumentSetCharset(XML_NS_DOCUMENT **doc, voCharset charset);

/** 1 when the declaration says standalone="yes"; 0 stands for "no" and for saying nothing. */
VO_API int xmlNsDocumentStandalone(XML_NS_DOCUMENT *doc);

/** Sets that; any value but 0 counts as 1. */
VO_API void xmlNsDocumentSetStandalone(XML_NS_DOCUMENT **doc, int standalone);

/** The top-level nodes in document order, of any number and kind. */
VO_NEW XML_NS_ITEMS *xmlNsDocumentItems(XML_NS_DOCUMENT *doc);

/** Replaces the top-level nodes. */
VO_API void xmlNsDocumentSetItems(XML_NS_DOCUMENT **doc, XML_NS_ITEMS *items);

/** Makes all objects of the tree now. Without this a decoded tree makes them when they are first
 *  asked for, and keeps the text that they come from until the last one is made or dropped. For
 *  callers who go on to keep a small part of a large document. Changes nothing else. */
VO_API void xmlNsDocumentMakeAll(XML_NS_DOCUMENT *doc);

/** @name Location
 *  The location that xmlDocumentDecode() was given for the beginning of the text, or null. @{ */
VO_NEW voParserLocation *xmlNsDocumentLocation(XML_NS_DOCUMENT *doc);
VO_API int xmlNsDocumentHasLocation(XML_NS_DOCUMENT *doc);
VO_API void xmlNsDocumentSetLocation(XML_NS_DOCUMENT **doc, voParserLocation *loc);
VO_API void xmlNsDocumentDelLocation(XML_NS_DOCUMENT **doc);
/** @} */

VO_END_DECLS

#endif
