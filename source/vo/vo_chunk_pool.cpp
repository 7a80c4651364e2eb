#include "source/vo/vo_chunk_pool.hpp"

#include "source/vo/vo_chunk.hpp"
#include "source/vo/vo_large_pages.hpp"

#include <mutex>

namespace vo {
namespace {

constexpr size_t chunkSize = size_t(Chunk::largest);
constexpr size_t segmentSize = size_t{4} << 20;
constexpr int chunksPerSegment = int(segmentSize / chunkSize) - 1;
constexpr int mostFreeSegments = 8; ///< 32 MB: what a large document needs at a time.

struct FreeChunk {
    FreeChunk *next;
};

/// What the system gives at a time, aligned to its size. It begins with this header, which takes
/// the place of a chunk.
struct Segment {
    Segment *next, *previous; ///< Among the segments with free chunks.
    FreeChunk *freed;         ///< Chunks that were used and given back.
    int untouched;            ///< Chunks at the end that were never used.
    int free;                 ///< Both together.

    static Segment *of(void *chunk) {
        return reinterpret_cast<Segment *>(reinterpret_cast<uintptr_t>(chunk) & ~(segmentSize - 1));
    }

    void *take() {
        --free;
        if (freed) return std::exchange(freed, freed->next);
        return reinterpret_cast<char *>(this) + segmentSize - size_t(untouched--) * chunkSize;
    }
    void give(void *chunk) {
        ++free;
        freed = new (chunk) FreeChunk{freed};
    }
};

constinit std::mutex mutex;
constinit Segment *available = nullptr; ///< Segments with free chunks.
constinit int segmentCount = 0;
constinit int freeSegments = 0; ///< Segments all of whose chunks are free.

void enlist(Segment *segment) {
    segment->previous = nullptr;
    segment->next = available;
    if (available) available->previous = segment;
    available = segment;
}

void delist(Segment *segment) {
    (segment->previous ? segment->previous->next : available) = segment->next;
    if (segment->next) segment->next->previous = segment->previous;
}

/// Memory for a segment, aligned to its size; null when there is none.
void *mapSegment() {
    constexpr size_t length = 2 * segmentSize;
    void *mapped =
        mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) return nullptr;
    char *begin = static_cast<char *>(mapped);
    const size_t head = -reinterpret_cast<uintptr_t>(begin) & (segmentSize - 1);
    if (head) munmap(begin, head);
    munmap(begin + head + segmentSize, length - head - segmentSize);
    return begin + head;
}

/// Fetches a segment. A process that decodes little never touches more than it needs of the first;
/// the others are for large documents and have large pages.
bool refill() {
    void *memory = mapSegment();
    if (!memory) return false;
    if (segmentCount++) preferLargePages(memory, segmentSize);
    ++freeSegments;
    enlist(new (memory) Segment{nullptr, nullptr, nullptr, chunksPerSegment, chunksPerSegment});
    return true;
}

void unmap(Segment *segment) {
    delist(segment);
    --freeSegments;
    --segmentCount;
    munmap(segment, segmentSize);
}

} // namespace

void *ChunkPool::take() {
    std::lock_guard lock(mutex);
    if (!available && !refill()) return nullptr;
    Segment *segment = available;
    if (segment->free == chunksPerSegment) --freeSegments;
    void *chunk = segment->take();
    if (segment->free == 0) delist(segment);
    return chunk;
}

void ChunkPool::give(void *chunk) {
    std::lock_guard lock(mutex);
    Segment *segment = Segment::of(chunk);
    if (segment->free == 0) enlist(segment);
    segment->give(chunk);
    if (segment->free < chunksPerSegment) return;
    if (++freeSegments > mostFreeSegments) unmap(segment);
}

} // namespace vo
