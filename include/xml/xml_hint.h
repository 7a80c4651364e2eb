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

/** Where the hint points, when that is closer to the fault than the error's location or when the
 *  error has none: at the attribute at fault in a tag of many, at a character that does not belong
 *  there, at the first bytes that are ill-formed. Null otherwise, and where there is no hint. Its
 *  numbers count as those of the error's location do; see also xmlDocumentDecodeTextLeniently(). */
VO_NEW voParserLocation *xmlDecodeErrorTryHintLocation(XML_DECODE_ERROR *err, voBuffer *xml);

/** The offset in `xml`, in bytes from 0, of what the error is about: of its location, or of the
 *  first bytes that are ill-formed, where the error is about those. -1 where that is not known, as
 *  in character sets in which the meaning of bytes depends on those before, such as ISO-2022-JP. */
VO_API int64_t xmlDecodeErrorByteOffset(XML_DECODE_ERROR *err, voBuffer *xml);
VO_API int64_t xmlNsDecodeErrorByteOffset(XML_NS_DECODE_ERROR *err, voBuffer *xml);
/** @} */

/** The text of `xml` in the character set that decoding finds, without a byte-order mark: what the
 *  locations of an error count in, for showing the line. Null where the bytes are no text in that
 *  character set or lack an XML declaration. */
VO_NEW voString *xmlDocumentTryDecodeText(voBuffer *xml);

/** The same for any bytes, for showing a line of them: bytes that are no text become U+FFFD, and
 *  without an XML declaration the character set is UTF-16 where they begin like that, else UTF-8.
 */
VO_NEW voString *xmlDocumentDecodeTextLeniently(voBuffer *xml);

/** The name of the encoding that the XML declaration of `xml` gives, as it stands; null where it
 *  gives none. Decoding does without a name that voCharsetFromIanaName() does not know. */
VO_NEW voString *xmlDocumentTryDeclaredEncoding(voBuffer *xml);

VO_END_DECLS

#endif
