// Buffers that hold 64-bit words.
#pragma once

#include "source/vo/vo_array.hpp"
#include "vo/vo_buffer.h"

namespace vo {

inline uint64_t *words(voBuffer *buffer) { return reinterpret_cast<uint64_t *>(buffer->items()); }

inline int64_t wordCount(voBuffer *buffer) { return buffer->length / int64_t{sizeof(uint64_t)}; }

/// Makes the caller's buffer private, `count` words long, and gives them. New words are not set.
inline uint64_t *resizeWords(voBuffer **buffer, int64_t count) {
    VO_ASSERT(count <= mostItems<voBuffer> / int64_t{sizeof(uint64_t)});
    return words(resizeArray(buffer, count * int64_t{sizeof(uint64_t)}));
}

inline void appendWord(voBuffer **buffer, uint64_t word) {
    int64_t count = wordCount(*buffer);
    resizeWords(buffer, count + 1)[count] = word;
}

} // namespace vo
