/** @file
 *  Plain memory, for code points that are to become a string. */
#ifndef VO_VO_MEMORY_H
#define VO_VO_MEMORY_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

/** A block of `count` elements of `size` bytes each, not initialised and aligned to 8 bytes. Never
 *  null: negative arguments, overflow and lack of memory abort. The block ends in voMemFree(), or
 *  in voStringCreateFromCharsUse(), for which it has a string's header in front. */
VO_API void *voMemAllocN(int64_t count, int64_t size);

/** Copies `count` elements of `size` bytes each to a place that does not overlap. */
VO_API void voMemCopyN(void *dst, const void *src, int64_t count, int64_t size);

/** Frees a block of voMemAllocN() that no string has taken over; null is ignored. */
VO_API void voMemFree(void *block);

VO_END_DECLS

#endif
