/** @file
 *  Flags that tune decoding and encoding; they are part of XML_OPTIONS. */
#ifndef XML_XML_FLAGS_H
#define XML_XML_FLAGS_H

#include "vo/vo.h"

VO_BEGIN_DECLS

/** A set of the bits below. */
typedef uint64_t XML_FLAGS;

/** Decoding gives every error, element, attribute and other node the location where it begins: of
 *  an element or another piece of markup the `<`, of an attribute its name, of a text its first
 *  character. Where a node ends is not recorded. Offset and column count code points of the decoded
 *  text, without a byte-order mark that was consumed. Lines end with every newline of
 *  vo/vo_newline.h, form feeds and U+2028 among them; to count as editors do set the decode newline
 *  flags to VO_NLF_FLAG_LF | VO_NLF_FLAG_CRLF | VO_NLF_FLAG_CR. The texts of attributes have no
 *  location of their own, and errors of the character set have none but the one that decoding was
 *  given. */
#define XML_FLAG_DECODE_LOCATION UINT64_C(1)

/** Encoding writes no XML declaration. */
#define XML_FLAG_ENCODE_OMIT_XML_DECLARATION UINT64_C(2)

/** Drops the bits that are not flags. */
VO_API XML_FLAGS xmlFlagsNormalize(XML_FLAGS flags);

/** Reads flag names joined by `|`, such as "XML_FLAG_DECODE_LOCATION". Unknown names are ignored;
 *  the empty string is no flag. */
VO_API XML_FLAGS xmlFlagsFromString(voString *vos);

/** The names of the normalized flags, in the form that xmlFlagsFromString() reads. */
VO_NEW voString *xmlFlagsToString(XML_FLAGS flags);

VO_END_DECLS

#endif
