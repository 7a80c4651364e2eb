/** @file
 *  Buffers: sequences of bytes, compared byte by byte, then by length. */
#ifndef VO_VO_BUFFER_H
#define VO_VO_BUFFER_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

typedef struct voBuffer voBuffer; /**< A buffer. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *voBufferSort(void);
VO_API voBuffer *voBufferRetain(voBuffer *obj);
VO_API void voBufferRelease(voBuffer *obj);
VO_API voObj *voBufferObj(voBuffer *obj);
VO_API voBuffer *voBufferFrom(voObj *obj);
VO_NEW voString *voBufferToString(voBuffer *obj);
VO_API int64_t voBufferCompare(voBuffer *a, voBuffer *b);
VO_API int voBufferEquals(voBuffer *a, voBuffer *b);
VO_NEW voBuffer *voBufferCreateFrom(voBuffer *source);
/** @} */

/** A new empty buffer. */
VO_NEW voBuffer *voBufferCreate(void);

/** A new buffer with a copy of `count` bytes; `bytes` may be null when there are none. */
VO_NEW voBuffer *voBufferCreateFromBytesCopy(const void *bytes, int64_t count);

/** The bytes, not terminated. Valid while the caller holds the buffer and nobody changes it through
 *  that reference. */
VO_API const uint8_t *voBufferBacking(voBuffer *buffer);

/** The number of bytes. */
VO_API int64_t voBufferLength(voBuffer *buffer);

/** Removes the bytes outside a range: what is left are the `count` bytes from `offset` (from 0) on.
 *  A range that does not lie inside the buffer aborts. */
VO_API void voBufferDelOuter(voBuffer **buffer, int64_t offset, int64_t count);

VO_END_DECLS

#endif
