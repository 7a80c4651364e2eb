// What the two directions of the namespace codec have in common.
#pragma once

#include "source/vo/vo_allocator.hpp"
#include "source/vo/vo_chunk.hpp"
#include "vo/vo.h"

#include <array>
#include <span>

namespace xml {

/// The objects of a vector, borrowed.
template <class T> std::span<T *> objectsIn(voVector *vector) {
    return {reinterpret_cast<T **>(vector->items()), size_t(vector->length)};
}

/// A further reference to an object that no other thread knows yet, so that counting needs no
/// atomic operation.
template <class T> T *share(T *own) {
    auto &refs = vo::obj(own)->refs;
    refs.store(refs.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
    return own;
}

/// The item lists that are being converted, from the outermost to the innermost. Every item
/// becomes one item, so the length of the new list tells how far it has come. Depth costs heap and
/// never the call stack.
struct OpenList {
    voVector *from;
    voVector *to;
    size_t mark; ///< What the scope held before the element of the list.

    bool atEnd() const { return to->length == from->length; }
    voObj *next() const { return from->items()[to->length]; }
};

/// Places vectors that are filled one by one. They are complete objects all the time, so that a
/// tree that is given up half-way is simply released.
class VectorPlacer : public vo::ChunkPlacer {
  public:
    VectorPlacer() : ChunkPlacer(vo::Chunk::smallest) {}

    /// A vector without objects and with room for `length`.
    voVector *vector(int64_t length) {
        auto *vector = createArray<voVector>(sort, length);
        vector->length = 0;
        return vector;
    }

    /// Adopts `object`.
    template <class T> static void push(voVector *vector, T *object) {
        vector->items()[vector->length++] = vo::obj(object);
    }

  private:
    voSort *sort = voVectorSort();
};

/// A small cache by the addresses of strings: most names of a document are the same few string
/// objects.
template <class Entry> class Recent {
  public:
    /// The entry for a pair of addresses; it may be about another pair.
    Entry &at(const void *a, const void *b = nullptr) {
        const uint64_t key = reinterpret_cast<uintptr_t>(a) + 3 * reinterpret_cast<uintptr_t>(b);
        return entries[(key * UINT64_C(0x9E3779B97F4A7C15)) >> (64 - indexBits)];
    }

  private:
    static constexpr int indexBits = 6;
    std::array<Entry, size_t{1} << indexBits> entries{};
};

} // namespace xml
