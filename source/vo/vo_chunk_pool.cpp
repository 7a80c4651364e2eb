#include "source/vo/vo_chunk_pool.hpp"

#include "source/vo/vo_chunk.hpp"

#include <mutex>
#include <sys/mman.h>

namespace vo {
namespace {

constexpr size_t chunkSize = size_t(Chunk::largest);
constexpr size_t chunksPerSegment = 16;
constexpr size_t mostWaiting = 512; ///< 32 MB: what a few large documents need at a time.

struct WaitingChunk {
    WaitingChunk *next;
};

constinit std::mutex mutex;
constinit WaitingChunk *waiting = nullptr;
constinit size_t waitingCount = 0;

void push(void *chunk) {
    waiting = new (chunk) WaitingChunk{waiting};
    ++waitingCount;
}

/// Fetches a segment from the system and puts its chunks, aligned to their size, into the stock.
void refill() {
    size_t length = (chunksPerSegment + 1) * chunkSize;
    void *mapped =
        mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) return;
    char *begin = static_cast<char *>(mapped);
    size_t unaligned = reinterpret_cast<uintptr_t>(begin) % chunkSize;
    size_t head = unaligned ? chunkSize - unaligned : 0;
    if (head) munmap(begin, head);
    if (head < chunkSize) munmap(begin + length - (chunkSize - head), chunkSize - head);
    for (size_t i = chunksPerSegment; i-- > 0;)
        push(begin + head + i * chunkSize);
}

} // namespace

void *ChunkPool::take() {
    std::lock_guard lock(mutex);
    if (!waiting) refill();
    if (!waiting) return nullptr;
    --waitingCount;
    return std::exchange(waiting, waiting->next);
}

void ChunkPool::give(void *chunk) {
    {
        std::lock_guard lock(mutex);
        if (waitingCount < mostWaiting) return push(chunk);
    }
    munmap(chunk, chunkSize);
}

} // namespace vo
