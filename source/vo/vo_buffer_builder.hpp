// Buffers that grow while they are written.
#pragma once

#include "source/vo/vo_array.hpp"
#include "source/vo/vo_utf.hpp"
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
    [[gnu::always_inline]] uint8_t *reserve(size_t count) {
        if (buffer->length - used < int64_t(count)) [[unlikely]]
            grow(int64_t(count));
        return buffer->items() + used;
    }

    void wrote(const uint8_t *end) { used = end - buffer->items(); }

    void append(Bytes bytes) {
        if (bytes.empty()) return;
        std::memcpy(reserve(bytes.size()), bytes.data(), bytes.size());
        used += int64_t(bytes.size());
    }

    /// Appends a string in UTF-8; false when it holds something that is not a character.
    bool append(voString *string) {
        return append(string->items(), string->items() + string->length);
    }
    bool append(const uint32_t *at, const uint32_t *end) {
        while (at < end) {
            const uint32_t *stop = end - at > stride ? at + stride : end;
            const Narrowed done = narrowToUtf8(reserve(size_t(stop - at) * 4), at, stop);
            if (done.at < stop) return false;
            wrote(done.out);
            at = stop;
        }
        return true;
    }

    /// What was written so far, valid until more is.
    Bytes written() const { return {buffer->items(), size_t(used)}; }

    /// Hands over what was written, without the room that was not used. The builder is done.
    voBuffer *take() {
        voBuffer *result = buffer.take();
        if (roomFor(used) < roomFor(result->length))
            result = reinterpret_cast<voBuffer *>(
                vo___ObjResize(&result->base, blockSize<voBuffer>(used)));
        result->length = used;
        return result;
    }

  private:
    /// Characters converted in one go, which bounds how much room is made in advance.
    static constexpr ptrdiff_t stride = 4096;

    [[gnu::noinline]] void grow(int64_t count) {
        resizeArray(buffer.edit(), std::max(used + count, buffer->length * 2));
    }

    Ref<voBuffer> buffer{createArray<voBuffer>(voBufferSort(), 0)}; ///< Its length is its room.
    int64_t used = 0;
};

} // namespace vo
