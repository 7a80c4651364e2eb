/** @file
 *  What may be wrong in a refused document, and how to mend it. */
#ifndef XML_XML_HINT_H
#define XML_XML_HINT_H

#include "vo/vo.h"
#include "xml/xml_decode_error.h"
#include "xml/xml_ns_decode_error.h"

VO_BEGIN_DECLS

/** @name Hints
 *  A second look at bytes that were refused. `xml` is what was decoded, with the default charset
 *  flags. An error with a location counts when the location counts from the first character of
 *  `xml`, as without an optional location, with a source or not; errors have one when
 *  XML_FLAG_DECODE_LOCATION was set. Takes time in proportion to the text, with a factor above that
 *  of decoding. @{ */

/** A sentence for the author of the document, without a full stop; null where nothing is known
 *  beyond the error's message, and where `xml` does not give that error at that place. It may quote
 *  a piece of the document as it stands, line ends and control characters included. */
VO_NEW voString *xmlDecodeErrorTryHint(XML_DECODE_ERROR *err, voBuffer *xml);
VO_NEW voString *xmlNsDecodeErrorTryHint(XML_NS_DECODE_ERROR *err, voBuffer *xml);

/** The offset in `xml`, in bytes from 0, of what the error is about: of its location, or of the
 *  first bytes that are ill-formed, where the error is about those and the text is meant to be
 *  UTF-8. -1 where that is not known, as in character sets in which the meaning of bytes depends on
 *  those before, such as ISO-2022-JP. */
VO_API int64_t xmlDecodeErrorByteOffset(XML_DECODE_ERROR *err, voBuffer *xml);
VO_API int64_t xmlNsDecodeErrorByteOffset(XML_NS_DECODE_ERROR *err, voBuffer *xml);
/** @} */

/** The text of `xml` in the character set that decoding finds, without a byte-order mark: what the
 *  locations of an error count in, for showing the line. Null where the bytes are no text in that
 *  character set or lack an XML declaration. */
VO_NEW voString *xmlDocumentTryDecodeText(voBuffer *xml);

VO_END_DECLS

#endif
