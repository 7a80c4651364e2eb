// Buffers that grow while they are written.
#pragma once

#include "source/vo/vo_array.hpp"
#include "vo/vo_buffer.h"

#include <algorithm>
#include <span>

namespace vo {

using Bytes = std::span<const uint8_t>;

inline Bytes bytesOf(voBuffer *buffer) { return {buffer->items(), size_t(buffer->length)}; }

/// Writes a buffer from front to back. Grows geometrically, so that time and memory stay in
/// proportion to what is written.
class BufferBuilder {
  public:
    /// Room for `count` more bytes, valid until the next call. `wrote` tells where they end.
    uint8_t *reserve(size_t count) {
        int64_t least = used + int64_t(count);
        if (!buffer) {
            buffer = Ref(createArray<voBuffer>(voBufferSort(), least));
        } else if (least > buffer->length) {
            resizeArray(buffer.edit(), std::max(least, buffer->length * 2));
        }
        return buffer->items() + used;
    }

    void wrote(const uint8_t *end) { used = end - buffer->items(); }

    void append(Bytes bytes) {
        if (bytes.empty()) return;
        std::memcpy(reserve(bytes.size()), bytes.data(), bytes.size());
        used += int64_t(bytes.size());
    }

    Bytes written() { return {reserve(0) - used, size_t(used)}; }

    /// Hands over what was written, without the room that was not used.
    voBuffer *take() {
        reserve(0);
        voBuffer *result = buffer.take();
        if (roomFor(used) < roomFor(result->length))
            result = static_cast<voBuffer *>(
                std::realloc(static_cast<void *>(result), size_t(blockSize<voBuffer>(used))));
        VO_ASSERT(result);
        result->length = used;
        return result;
    }

  private:
    Ref<voBuffer> buffer; ///< Its length is its room.
    int64_t used = 0;
};

} // namespace vo
