/** @file
 *  What decoding a document gives. */
#ifndef XML_XML_DECODE_RESULT_H
#define XML_XML_DECODE_RESULT_H

#include "xml/xml_decode_error.h"
#include "xml/xml_document.h"

VO_BEGIN_DECLS

/** Exactly one of a document and an error. Never changes. */
typedef struct XML_DECODE_RESULT XML_DECODE_RESULT;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlDecodeResultSort(void);
VO_API XML_DECODE_RESULT *xmlDecodeResultRetain(XML_DECODE_RESULT *obj);
VO_API void xmlDecodeResultRelease(XML_DECODE_RESULT *obj);
VO_API voObj *xmlDecodeResultObj(XML_DECODE_RESULT *obj);
VO_API XML_DECODE_RESULT *xmlDecodeResultFrom(voObj *obj);
VO_NEW voString *xmlDecodeResultToString(XML_DECODE_RESULT *obj);
VO_API int64_t xmlDecodeResultCompare(XML_DECODE_RESULT *objA, XML_DECODE_RESULT *objB);
VO_API int xmlDecodeResultEquals(XML_DECODE_RESULT *objA, XML_DECODE_RESULT *objB);
/** @} */

/** Makes a result that holds a document. */
VO_NEW XML_DECODE_RESULT *xmlDecodeResultCreate(XML_DOCUMENT *document);

/** Makes a result that holds an error. */
VO_NEW XML_DECODE_RESULT *xmlDecodeResultCreateError(XML_DECODE_ERROR *error);

/** The document, or null when there is an error; and whether there is a document. */
VO_NEW XML_DOCUMENT *xmlDecodeResultDocument(XML_DECODE_RESULT *result);
VO_API int xmlDecodeResultHasDocument(XML_DECODE_RESULT *result);

/** The error, or null when there is a document; and whether there is an error. */
VO_NEW XML_DECODE_ERROR *xmlDecodeResultError(XML_DECODE_RESULT *result);
VO_API int xmlDecodeResultHasError(XML_DECODE_RESULT *result);

VO_END_DECLS

#endif
