// Memory for the many objects that a decoder makes at once.
#pragma once

#include "source/vo/vo_array.hpp"

namespace vo {

/// What a chunk begins with. A chunk is aligned to its size, so an object's address and its tag
/// give the chunk it lives in.
struct Chunk {
    /// Objects in the chunk that are still there. While the chunk is open it also counts
    /// `openBias`, so that it cannot drop to nothing before the last object has been placed.
    std::atomic<int64_t> live;
    int64_t size;

    static constexpr int64_t openBias = int64_t{1} << 40;
    static constexpr int64_t smallest = 2048;
    static constexpr int64_t largest = 65536;

    /// Bytes behind every object in a chunk that may be overwritten while it is filled: 16 code
    /// points.
    static constexpr int64_t slack = VO_CHUNKS ? 64 : 0;

    /// Tags are the binary logarithm less 10: 1 for 2 KB up to 6 for 64 KB.
    static constexpr int tagShift = 10;

    static Chunk *of(const voObj *object) {
        uintptr_t size = uintptr_t{1} << (chunkTag(object) + tagShift);
        return reinterpret_cast<Chunk *>(reinterpret_cast<uintptr_t>(object) & ~(size - 1));
    }
};

/// Gives back `count` places of objects that have gone; the last one frees the chunk.
void leaveChunk(Chunk *chunk, int64_t count);

/// A new object with a count of 1 whose fields are not set. It becomes an object by with(), which
/// takes a value for each of them.
template <class T> class [[nodiscard]] Unset {
  public:
    explicit Unset(voObj *placed) : object(reinterpret_cast<T *>(placed)) {}

    /// Sets all of fields(), in that order; adopts references.
    template <class... Values> T *with(Values... values) {
        object->fields() = std::tuple<Values...>(values...);
        return object;
    }

  private:
    T *object;
};

/// Places objects one behind another in chunks. Objects are ordinary in every other way: they are
/// retained, released, changed and kept like any object, and outlive the placer. An object that
/// is kept keeps its chunk, at most 64 KB. Not for more than one thread at a time.
class ChunkPlacer {
  public:
    /// `expectedBytes` sizes the first chunk, so that a small document keeps little memory. Each
    /// further chunk is larger than the one before, up to 64 KB.
    explicit ChunkPlacer(int64_t expectedBytes) : nextSize(expectedBytes) {}
    ChunkPlacer(const ChunkPlacer &) = delete;
    ChunkPlacer &operator=(const ChunkPlacer &) = delete;
    ~ChunkPlacer() { close(); }

    template <class T> Unset<T> create(voSort *sort) { return Unset<T>(place(sizeof(T), sort)); }

    /// A new array; the caller sets its items. In a chunk it takes what it needs; outside it has
    /// the room that every array of its own has.
    template <class A> A *createArray(voSort *sort, int64_t length) {
        const int64_t size = int64_t{sizeof(A)} + length * int64_t{sizeof(typename A::Item)};
        if (!isPlaced(size)) return vo::createArray<A>(sort, length);
        auto *array = reinterpret_cast<A *>(place(size, sort));
        array->length = length;
        return array;
    }

    /// Whether an object goes into a chunk and has its slack behind it. A large one would waste the
    /// rest of a chunk and keep it all alive.
    static constexpr bool isPlaced(int64_t size) { return VO_CHUNKS && size <= Chunk::largest / 4; }

  private:
    voObj *place(int64_t size, voSort *sort) {
        if (!isPlaced(size)) return vo___ObjCreate(size, sort);
        size = (size + 7) & ~int64_t{7};
        if (size > end - next) open(size);
        auto *object = reinterpret_cast<voObj *>(next);
        next += size;
        ++placed;
        object->taggedSort = reinterpret_cast<voSort *>(reinterpret_cast<uintptr_t>(sort) | tag);
        object->refs.store(1, std::memory_order_relaxed);
        return object;
    }

    void open(int64_t size) {
        close();
        int64_t header = sizeof(Chunk);
        const int64_t needed = header + size + Chunk::slack;
        chunk = static_cast<Chunk *>(vo___ChunkOpen(nextSize > needed ? nextSize : needed));
        nextSize = 4 * chunk->size;
        next = reinterpret_cast<char *>(chunk) + header;
        end = reinterpret_cast<char *>(chunk) + chunk->size - Chunk::slack;
        tag = uintptr_t(__builtin_ctzll(uint64_t(chunk->size))) - Chunk::tagShift;
    }

    void close() {
        if (chunk) vo___ChunkClose(chunk, placed);
        chunk = nullptr;
        next = end = nullptr;
        placed = 0;
    }

    Chunk *chunk = nullptr;
    char *next = nullptr;
    char *end = nullptr;
    uintptr_t tag = 0;
    int64_t placed = 0;
    int64_t nextSize;
};

} // namespace vo
