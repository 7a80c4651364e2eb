/** @file
 *  Character sets: their names, and conversion between bytes and text.
 *
 *  Conversion is strict unless a flag says otherwise. Bytes that are not well-formed in their
 *  character set convert to null: in UTF-8, UTF-16 and UTF-32 overlong forms, surrogates on their
 *  own, values above U+10FFFF, odd lengths and characters cut off at the end. So does a text with
 *  a character that the character set lacks; nothing is ever replaced by something similar.
 *
 *  Byte-order marks (U+FEFF in front of a text, in GB18030 and ids 44 to 50):
 *  - VO_CHARSET_UTF_16 and VO_CHARSET_UTF_32 are read by their mark, which never becomes part of
 *    the text. Without one the byte order is that which makes the first character `<` or white
 *    space, else big-endian. They are written big-endian with a mark, whatever the flags.
 *  - In GB18030, UTF-8 and the forms with a fixed byte order a mark is a character like any other
 *    unless VO_CHARSET_FLAG_BOM or, in reading, VO_CHARSET_FLAG_SNIFF is given. */
#ifndef VO_VO_CHARSET_H
#define VO_VO_CHARSET_H

#include "vo/vo_buffer.h"
#include "vo/vo_vector.h"

VO_BEGIN_DECLS

/** A character set: one of the constants below, or -1 for none. */
typedef int64_t voCharset;

/** The character sets, each named after its preferred IANA name. */
enum {
    VO_CHARSET_US_ASCII = 0,
    VO_CHARSET_ISO_8859_1 = 1,
    VO_CHARSET_ISO_8859_2 = 2,
    VO_CHARSET_ISO_8859_3 = 3,
    VO_CHARSET_ISO_8859_4 = 4,
    VO_CHARSET_ISO_8859_5 = 5,
    VO_CHARSET_ISO_8859_6 = 6,
    VO_CHARSET_ISO_8859_7 = 7,
    VO_CHARSET_ISO_8859_8 = 8,
    VO_CHARSET_ISO_8859_9 = 9,
    VO_CHARSET_ISO_8859_10 = 10,
    VO_CHARSET_TIS_620 = 11,
    VO_CHARSET_ISO_8859_13 = 12,
    VO_CHARSET_ISO_8859_14 = 13,
    VO_CHARSET_ISO_8859_15 = 14,
    VO_CHARSET_ISO_8859_16 = 15,
    VO_CHARSET_WINDOWS_1250 = 16,
    VO_CHARSET_WINDOWS_1251 = 17,
    VO_CHARSET_WINDOWS_1252 = 18,
    VO_CHARSET_WINDOWS_1253 = 19,
    VO_CHARSET_WINDOWS_1254 = 20,
    VO_CHARSET_WINDOWS_1255 = 21,
    VO_CHARSET_WINDOWS_1256 = 22,
    VO_CHARSET_WINDOWS_1257 = 23,
    VO_CHARSET_WINDOWS_1258 = 24,
    VO_CHARSET_WINDOWS_874 = 25,
    VO_CHARSET_KOI8_R = 26,
    VO_CHARSET_KOI8_U = 27,
    VO_CHARSET_IBM437 = 28,
    VO_CHARSET_IBM850 = 29,
    VO_CHARSET_IBM852 = 30,
    VO_CHARSET_IBM855 = 31,
    VO_CHARSET_IBM857 = 32,
    VO_CHARSET_IBM862 = 33,
    VO_CHARSET_IBM866 = 34,
    VO_CHARSET_MACINTOSH = 35,
    VO_CHARSET_SHIFT_JIS = 36,
    VO_CHARSET_EUC_JP = 37,
    VO_CHARSET_ISO_2022_JP = 38,
    VO_CHARSET_EUC_KR = 39,
    VO_CHARSET_GB2312 = 40,
    VO_CHARSET_GBK = 41,
    VO_CHARSET_GB18030 = 42,
    VO_CHARSET_BIG5 = 43,
    VO_CHARSET_UTF_8 = 44,
    VO_CHARSET_UTF_16 = 45,
    VO_CHARSET_UTF_16BE = 46,
    VO_CHARSET_UTF_16LE = 47,
    VO_CHARSET_UTF_32 = 48,
    VO_CHARSET_UTF_32BE = 49,
    VO_CHARSET_UTF_32LE = 50
};

/** Whether `charset` is the id of a character set. */
#define VO_CHARSET_OK(charset) ((uint64_t)(charset) <= VO_CHARSET_UTF_32LE)

/** Bits that tune a conversion. */
typedef uint64_t voCharsetFlags;

/** Reading consumes one leading byte-order mark; writing puts one in front, but only for the ids
 *  from 44 to 50. */
#define VO_CHARSET_FLAG_BOM UINT64_C(1)

/** Reading never gives null, for a look at the head of an input: a leading mark is consumed, each
 *  ill-formed sequence becomes U+FFFD, and a character cut off at the end is dropped. No effect on
 *  writing. */
#define VO_CHARSET_FLAG_SNIFF UINT64_C(2)

/** @name Names @{ */

/** The character set of that IANA name or one of its aliases, ignoring the case of ASCII letters;
 *  -1 when there is none. */
VO_API voCharset voCharsetFromIanaName(voString *name);

/** The preferred IANA name of a valid id. */
VO_NEW voString *voCharsetToIanaName(voCharset charset);

/** The names by which voCharsetFromIanaName() knows a valid id, the preferred one left out: a new
 *  vector of strings. */
VO_NEW voVector *voCharsetAliases(voCharset charset);
/** @} */

/** @name Conversion of whole texts
 *  `charset` must be valid. Takes time in proportion to the text. Null also when the system lacks
 *  the converter for the character set; with VO_CHARSET_FLAG_SNIFF the bytes are then read as
 *  US-ASCII. @{ */

/** The text that the bytes encode; null when they are not well-formed. */
VO_NEW voString *voCharsetTryConvertBufferToStringWithFlags(voCharset charset, voBuffer *buffer,
                                                            voCharsetFlags flags);

/** The bytes that encode the text; null when it holds a character that the character set lacks, a
 *  surrogate or a value above U+10FFFF. */
VO_NEW voBuffer *voCharsetTryConvertStringToBufferWithFlags(voCharset charset, voString *string,
                                                            voCharsetFlags flags);

/** As voCharsetTryConvertBufferToStringWithFlags(), with the text as well-formed UTF-8 and without
 *  a mark that is consumed. Bytes that are that already come back as the same buffer. */
VO_NEW voBuffer *voCharsetTryConvertBufferToUtf8WithFlags(voCharset charset, voBuffer *buffer,
                                                          voCharsetFlags flags);

/** As voCharsetTryConvertStringToBufferWithFlags(), with the text as UTF-8; null also when that is
 *  ill-formed. A text that needs no change comes back as the same buffer. */
VO_NEW voBuffer *voCharsetTryConvertUtf8ToBufferWithFlags(voCharset charset, voBuffer *utf8,
                                                          voCharsetFlags flags);

/** Whether `count` bytes are well-formed UTF-8. Internal to the product's libraries. */
VO_API int vo___Utf8IsValid(const uint8_t *bytes, int64_t count);

/** As voCharsetTryConvertUtf8ToBufferWithFlags() for a text that is known to be well-formed.
 *  Internal to the product's libraries. */
VO_NEW voBuffer *vo___Utf8TryEncode(voCharset charset, voBuffer *utf8, voCharsetFlags flags);
/** @} */

/** @name Flag words as text, as in vo_flagset.h @{ */

/** The word without bits that have no meaning. */
VO_API voCharsetFlags voCharsetFlagsNormalize(voCharsetFlags flags);

/** The text of the normalized word. */
VO_NEW voString *voCharsetFlagsToString(voCharsetFlags flags);

/** The word that a text names; an unknown name sets bit 63. */
VO_API voCharsetFlags voCharsetFlagsFromString(voString *str);
/** @} */

VO_END_DECLS

#endif
