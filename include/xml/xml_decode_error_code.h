/** @file
 *  What can be wrong with a document that is decoded. The values never change. */
#ifndef XML_XML_DECODE_ERROR_CODE_H
#define XML_XML_DECODE_ERROR_CODE_H

#include "vo/vo.h"

VO_BEGIN_DECLS

/** One of the eleven values below; none of them stands for success. Unless its code says otherwise
 *  the place of an error is the "<" of what is malformed; with attributes that of their element. */
typedef int64_t XML_DECODE_ERROR_CODE;

enum {
    /** No XML declaration is found within the first 1,024 bytes, so that the character set is not
     *  known (the input may be empty); or the bytes are not text in the character set of the
     *  document. There is no place, but see xmlDocumentTryDecodeFile(). */
    XML_DECODE_ERROR_CODE_CHARSET = 0,
    /** The XML declaration is malformed. The place is behind "<?xml", or where reading stopped. */
    XML_DECODE_ERROR_CODE_XML_DECLARATION = 1,
    /** A document type declaration, which is refused. */
    XML_DECODE_ERROR_CODE_DOCTYPE = 2,
    /** Markup that is no well-formed tag. */
    XML_DECODE_ERROR_CODE_TAG = 3,
    /** A closing tag that does not belong to the innermost open element. */
    XML_DECODE_ERROR_CODE_TAG_MISMATCH = 4,
    /** The input ends inside an element. The place is that of the innermost open start tag. */
    XML_DECODE_ERROR_CODE_TAG_NOT_CLOSED = 5,
    /** A processing instruction without a target or an end. */
    XML_DECODE_ERROR_CODE_PROCESSING_INSTRUCTION = 6,
    /** A comment without an end, an empty one, or one with hyphens where they must not be. */
    XML_DECODE_ERROR_CODE_COMMENT = 7,
    /** A CDATA section without an end. */
    XML_DECODE_ERROR_CODE_CDATA = 8,
    /** An attribute that is malformed or appears twice. */
    XML_DECODE_ERROR_CODE_ATTRIBUTE_LIST = 9,
    /** Text that holds a bare &, a malformed reference or a character reference. The place is that
     *  of the "&". */
    XML_DECODE_ERROR_CODE_TEXT = 10
};

/** Whether `ec` is one of the codes. */
#define XML_DECODE_ERROR_CODE_OK(ec) ((uint64_t)(ec) <= XML_DECODE_ERROR_CODE_TEXT)

/** The code of that name, such as "XML_DECODE_ERROR_CODE_TAG"; -1 for any other name. */
VO_API XML_DECODE_ERROR_CODE xmlDecodeErrorCodeFromString(voString *vos);

/** The name of a code. */
VO_NEW voString *xmlDecodeErrorCodeToString(XML_DECODE_ERROR_CODE ec);

/** An English sentence fragment that tells a person what the code means. */
VO_NEW voString *xmlDecodeErrorCodeMessageText(XML_DECODE_ERROR_CODE ec);

VO_END_DECLS

#endif
