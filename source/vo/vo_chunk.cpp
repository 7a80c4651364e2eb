#include "source/vo/vo_chunk.hpp"

#include "source/vo/vo_chunk_pool.hpp"
#include "source/vo/vo_live.hpp"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <new>

namespace vo {

void leaveChunk(Chunk *chunk, int64_t count) {
    if (chunk->live.fetch_sub(count, std::memory_order_acq_rel) != count) return;
    if (chunk->size == Chunk::largest)
        ChunkPool::give(chunk);
    else
        std::free(chunk);
}

} // namespace vo

void *vo___ChunkOpen(int64_t bytes) {
    int64_t size = std::clamp(bytes, vo::Chunk::smallest, vo::Chunk::largest);
    auto rounded = std::bit_ceil(size_t(size));
    void *block = rounded == size_t(vo::Chunk::largest) ? vo::ChunkPool::take()
                                                        : std::aligned_alloc(rounded, rounded);
    VO_ASSERT(block);
    return new (block) vo::Chunk{vo::Chunk::openBias, int64_t(rounded)};
}

void vo___ChunkClose(void *chunk, int64_t objects) {
    vo::countLive(objects);
    vo::leaveChunk(static_cast<vo::Chunk *>(chunk), vo::Chunk::openBias - objects);
}
