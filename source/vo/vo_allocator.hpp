// Standard containers whose memory comes from the runtime, so that lack of it aborts the usual way.
#pragma once

#include "vo/vo_memory.h"

#include <cstddef>
#include <new>
#include <utility>
#include <vector>

namespace vo {

template <class T> struct Allocator {
    using value_type = T;
    static_assert(alignof(T) <= 8);

    Allocator() = default;
    template <class U> Allocator(const Allocator<U> &) {}

    T *allocate(size_t count) {
        return static_cast<T *>(voMemAllocN(int64_t(count), int64_t{sizeof(T)}));
    }
    void deallocate(T *block, size_t) { voMemFree(block); }
    bool operator==(const Allocator &) const = default;
};

template <class T> using Vec = std::vector<T, Allocator<T>>;

/// A new T in memory of the runtime, for discard().
template <class T, class... Arguments> [[nodiscard]] T *make(Arguments &&...arguments) {
    return new (Allocator<T>().allocate(1)) T(std::forward<Arguments>(arguments)...);
}

/// Destroys what make() gave; null is ignored.
template <class T> void discard(T *made) {
    if (!made) return;
    made->~T();
    voMemFree(made);
}

} // namespace vo
