/** @file
 *  What counts as a newline. */
#ifndef VO_VO_NEWLINE_H
#define VO_VO_NEWLINE_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

/** A set of newlines. CR LF is one newline when VO_NLF_FLAG_CRLF is set, whatever else is; without
 *  it, CR and LF count each for themselves. */
typedef uint64_t voNlfFlags;

#define VO_NLF_FLAG_LF UINT64_C(1)   /**< U+000A */
#define VO_NLF_FLAG_CRLF UINT64_C(2) /**< U+000D U+000A */
#define VO_NLF_FLAG_CR UINT64_C(4)   /**< U+000D */
#define VO_NLF_FLAG_NEL UINT64_C(8)  /**< U+0085 */
#define VO_NLF_FLAG_VT UINT64_C(16)  /**< U+000B */
#define VO_NLF_FLAG_FF UINT64_C(32)  /**< U+000C */
#define VO_NLF_FLAG_LS UINT64_C(64)  /**< U+2028 */
#define VO_NLF_FLAG_PS UINT64_C(128) /**< U+2029 */
/** All of them. */
#define VO_NLF_FLAGS_ALL (2 * VO_NLF_FLAG_PS - 1)

/** The word without the bits that mean nothing. */
VO_API voNlfFlags voNlfFlagsNormalize(voNlfFlags flags);

/** The text form as in vo_flagset.h, such as `VO_NLF_FLAG_LF|VO_NLF_FLAG_CRLF`. */
VO_NEW voString *voNlfFlagsToString(voNlfFlags flags);

/** The way back. An unknown name reads as bit 63, which voNlfFlagsNormalize() drops. */
VO_API voNlfFlags voNlfFlagsFromString(voString *str);

VO_END_DECLS

#endif
