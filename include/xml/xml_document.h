/** @file
 *  A document: the settings of the XML declaration and the top-level nodes. */
#ifndef XML_XML_DOCUMENT_H
#define XML_XML_DOCUMENT_H

#include "xml/xml_items.h"

VO_BEGIN_DECLS

typedef struct XML_DOCUMENT XML_DOCUMENT; /**< A document. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlDocumentSort(void);
VO_API XML_DOCUMENT *xmlDocumentRetain(XML_DOCUMENT *obj);
VO_API void xmlDocumentRelease(XML_DOCUMENT *obj);
VO_API voObj *xmlDocumentObj(XML_DOCUMENT *obj);
VO_API XML_DOCUMENT *xmlDocumentFrom(voObj *obj);
VO_NEW voString *xmlDocumentToString(XML_DOCUMENT *obj);
VO_API int64_t xmlDocumentCompare(XML_DOCUMENT *objA, XML_DOCUMENT *objB);
VO_API int xmlDocumentEquals(XML_DOCUMENT *objA, XML_DOCUMENT *objB);
VO_NEW XML_DOCUMENT *xmlDocumentCreateFrom(XML_DOCUMENT *source);
/** @} */

/** Makes an empty document: version "1.0", character set 44 (UTF-8), not standalone. */
VO_NEW XML_DOCUMENT *xmlDocumentCreate(void);

/** The XML version, such as "1.0". */
VO_NEW voString *xmlDocumentVersion(XML_DOCUMENT *doc);

/** Sets the XML version, which must satisfy xmlValueVersionNumOk(). */
VO_API void xmlDocumentSetVersion(XML_DOCUMENT **doc, voString *version);

/** The character set of the document's byte form. */
VO_API voCharset xmlDocumentCharset(XML_DOCUMENT *doc);

/** Sets the character set of the byte form; it must be a known one (0 to 50). */
VO_API void xmlDocumentSetCharset(XML_DOCUMENT **doc, voCharset charset);

/** 1 when the declaration says standalone="yes"; 0 stands for "no" and for saying nothing. */
VO_API int xmlDocumentStandalone(XML_DOCUMENT *doc);

/** Sets that; any value but 0 counts as 1. */
VO_API void xmlDocumentSetStandalone(XML_DOCUMENT **doc, int standalone);

/** The top-level nodes in document order, of any number and kind. */
VO_NEW XML_ITEMS *xmlDocumentItems(XML_DOCUMENT *doc);

/** Replaces the top-level nodes. */
VO_API void xmlDocumentSetItems(XML_DOCUMENT **doc, XML_ITEMS *items);

/** Makes all objects of the tree now. Without this a decoded tree makes them when they are first
 *  asked for, and keeps the text that they come from until the last one is made or dropped. For
 *  callers who go on to keep a small part of a large document. Changes nothing else. */
VO_API void xmlDocumentMakeAll(XML_DOCUMENT *doc);

/** @name Location
 *  The location that xmlDocumentDecode() was given for the beginning of the text, or null. @{ */
VO_NEW voParserLocation *xmlDocumentLocation(XML_DOCUMENT *doc);
VO_API int xmlDocumentHasLocation(XML_DOCUMENT *doc);
VO_API void xmlDocumentSetLocation(XML_DOCUMENT **doc, voParserLocation *loc);
VO_API void xmlDocumentDelLocation(XML_DOCUMENT **doc);
/** @} */

VO_END_DECLS

#endif
