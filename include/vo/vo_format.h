/** @file
 *  Numbers in text. */
#ifndef VO_VO_FORMAT_H
#define VO_VO_FORMAT_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

/** Reads the digits that the `count` code points at `chars` begin with, as an unsigned integer in
 *  `radix` (2 to 36; letters of either case). Gives 1 and stores the value and the number of code
 *  points read; or gives 0 and stores nothing, when there is no digit or the value does not fit
 *  into 63 bits. Any number of leading zeros is allowed. */
VO_API int voFormatTryDecodeIntChars(const uint32_t *chars, int64_t count, int64_t radix,
                                     int64_t *value, int64_t *used);

VO_END_DECLS

#endif
