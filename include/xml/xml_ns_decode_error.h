/** @file
 *  Why and where the namespaces of a document could not be resolved. */
#ifndef XML_XML_NS_DECODE_ERROR_H
#define XML_XML_NS_DECODE_ERROR_H

#include "xml/xml_ns_decode_error_code.h"

VO_BEGIN_DECLS

/** A code and, if known, a location. Never changes. */
typedef struct XML_NS_DECODE_ERROR XML_NS_DECODE_ERROR;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlNsDecodeErrorSort(void);
VO_API XML_NS_DECODE_ERROR *xmlNsDecodeErrorRetain(XML_NS_DECODE_ERROR *obj);
VO_API void xmlNsDecodeErrorRelease(XML_NS_DECODE_ERROR *obj);
VO_API voObj *xmlNsDecodeErrorObj(XML_NS_DECODE_ERROR *obj);
VO_API XML_NS_DECODE_ERROR *xmlNsDecodeErrorFrom(voObj *obj);
VO_NEW voString *xmlNsDecodeErrorToString(XML_NS_DECODE_ERROR *obj);
VO_API int64_t xmlNsDecodeErrorCompare(XML_NS_DECODE_ERROR *objA, XML_NS_DECODE_ERROR *objB);
VO_API int xmlNsDecodeErrorEquals(XML_NS_DECODE_ERROR *objA, XML_NS_DECODE_ERROR *objB);
/** @} */

/** Makes an error. @param optionalLocation that of the element or attribute at fault. */
VO_NEW XML_NS_DECODE_ERROR *xmlNsDecodeErrorCreate(XML_NS_DECODE_ERROR_CODE ec,
                                                   voParserLocation *optionalLocation);

/** What is wrong. */
VO_API XML_NS_DECODE_ERROR_CODE xmlNsDecodeErrorErrorCode(XML_NS_DECODE_ERROR *err);

/** The location, or null when none is known; and whether one is known. */
VO_NEW voParserLocation *xmlNsDecodeErrorLocation(XML_NS_DECODE_ERROR *err);
VO_API int xmlNsDecodeErrorHasLocation(XML_NS_DECODE_ERROR *err);

/** The code's message text at the error's location, as an error message for people. */
VO_NEW voMessage *xmlNsDecodeErrorToMessage(XML_NS_DECODE_ERROR *err);

VO_END_DECLS

#endif
