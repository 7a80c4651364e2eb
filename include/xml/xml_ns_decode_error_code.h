/** @file
 *  What can be wrong with the namespaces of a document. The values never change. */
#ifndef XML_XML_NS_DECODE_ERROR_CODE_H
#define XML_XML_NS_DECODE_ERROR_CODE_H

#include "vo/vo.h"

VO_BEGIN_DECLS

/** One of the four values below; none of them stands for success. */
typedef int64_t XML_NS_DECODE_ERROR_CODE;

enum {
    /** A declared namespace name has an undefined reference or is the reserved xmlns namespace. */
    XML_NS_DECODE_ERROR_CODE_NAMESPACE = 0,
    /** A prefix, declared or used, is not a name without colons. */
    XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX = 1,
    /** A prefix is used where no declaration of it is in scope. */
    XML_NS_DECODE_ERROR_CODE_NAMESPACE_PREFIX_UNKNOWN = 2,
    /** The local part of an element's or attribute's name is not a name without colons. */
    XML_NS_DECODE_ERROR_CODE_LOCAL_NAME = 3
};

/** Whether `ec` is one of the codes. */
#define XML_NS_DECODE_ERROR_CODE_OK(ec) ((uint64_t)(ec) <= XML_NS_DECODE_ERROR_CODE_LOCAL_NAME)

/** The code of that name, such as "XML_NS_DECODE_ERROR_CODE_LOCAL_NAME"; -1 for any other name. */
VO_API XML_NS_DECODE_ERROR_CODE xmlNsDecodeErrorCodeFromString(voString *vos);

/** The name of a code. */
VO_NEW voString *xmlNsDecodeErrorCodeToString(XML_NS_DECODE_ERROR_CODE ec);

/** An English sentence fragment that tells a person what the code means. */
VO_NEW voString *xmlNsDecodeErrorCodeMessageText(XML_NS_DECODE_ERROR_CODE ec);

VO_END_DECLS

#endif
