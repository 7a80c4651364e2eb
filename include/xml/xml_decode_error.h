/** @file
 *  Why and where a document could not be decoded. */
#ifndef XML_XML_DECODE_ERROR_H
#define XML_XML_DECODE_ERROR_H

#include "xml/xml_decode_error_code.h"

VO_BEGIN_DECLS

/** A code and, if known, a location. Never changes. */
typedef struct XML_DECODE_ERROR XML_DECODE_ERROR;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlDecodeErrorSort(void);
VO_API XML_DECODE_ERROR *xmlDecodeErrorRetain(XML_DECODE_ERROR *obj);
VO_API void xmlDecodeErrorRelease(XML_DECODE_ERROR *obj);
VO_API voObj *xmlDecodeErrorObj(XML_DECODE_ERROR *obj);
VO_API XML_DECODE_ERROR *xmlDecodeErrorFrom(voObj *obj);
VO_NEW voString *xmlDecodeErrorToString(XML_DECODE_ERROR *obj);
VO_API int64_t xmlDecodeErrorCompare(XML_DECODE_ERROR *objA, XML_DECODE_ERROR *objB);
VO_API int xmlDecodeErrorEquals(XML_DECODE_ERROR *objA, XML_DECODE_ERROR *objB);
/** @} */

/** Makes an error. @param optionalLocation where decoding failed. */
VO_NEW XML_DECODE_ERROR *xmlDecodeErrorCreate(XML_DECODE_ERROR_CODE ec,
                                              voParserLocation *optionalLocation);

/** What is wrong. */
VO_API XML_DECODE_ERROR_CODE xmlDecodeErrorErrorCode(XML_DECODE_ERROR *err);

/** The location, or null when none is known; and whether one is known. */
VO_NEW voParserLocation *xmlDecodeErrorLocation(XML_DECODE_ERROR *err);
VO_API int xmlDecodeErrorHasLocation(XML_DECODE_ERROR *err);

/** The code's message text at the error's location, as an error message for people. */
VO_NEW voMessage *xmlDecodeErrorToMessage(XML_DECODE_ERROR *err);

VO_END_DECLS

#endif
