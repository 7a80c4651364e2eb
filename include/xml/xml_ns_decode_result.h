/** @file
 *  What resolving the namespaces of a document gives. */
#ifndef XML_XML_NS_DECODE_RESULT_H
#define XML_XML_NS_DECODE_RESULT_H

#include "xml/xml_ns_decode_error.h"
#include "xml/xml_ns_document.h"

VO_BEGIN_DECLS

/** Exactly one of a document and an error. Never changes. */
typedef struct XML_NS_DECODE_RESULT XML_NS_DECODE_RESULT;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlNsDecodeResultSort(void);
VO_API XML_NS_DECODE_RESULT *xmlNsDecodeResultRetain(XML_NS_DECODE_RESULT *obj);
VO_API void xmlNsDecodeResultRelease(XML_NS_DECODE_RESULT *obj);
VO_API voObj *xmlNsDecodeResultObj(XML_NS_DECODE_RESULT *obj);
VO_API XML_NS_DECODE_RESULT *xmlNsDecodeResultFrom(voObj *obj);
VO_NEW voString *xmlNsDecodeResultToString(XML_NS_DECODE_RESULT *obj);
VO_API int64_t xmlNsDecodeResultCompare(XML_NS_DECODE_RESULT *objA, XML_NS_DECODE_RESULT *objB);
VO_API int xmlNsDecodeResultEquals(XML_NS_DECODE_RESULT *objA, XML_NS_DECODE_RESULT *objB);
/** @} */

/** Makes a result that holds a document. */
VO_NEW XML_NS_DECODE_RESULT *xmlNsDecodeResultCreate(XML_NS_DOCUMENT *document);

/** Makes a result that holds an error. */
VO_NEW XML_NS_DECODE_RESULT *xmlNsDecodeResultCreateError(XML_NS_DECODE_ERROR *error);

/** The document, or null when there is an error; and whether there is a document. */
VO_NEW XML_NS_DOCUMENT *xmlNsDecodeResultDocument(XML_NS_DECODE_RESULT *res);
VO_API int xmlNsDecodeResultHasDocument(XML_NS_DECODE_RESULT *res);

/** The error, or null when there is a document; and whether there is an error. */
VO_NEW XML_NS_DECODE_ERROR *xmlNsDecodeResultError(XML_NS_DECODE_RESULT *res);
VO_API int xmlNsDecodeResultHasError(XML_NS_DECODE_RESULT *res);

VO_END_DECLS

#endif
