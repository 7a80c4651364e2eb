// Strings, vectors and buffers: one block each, a counted header with the items right behind it.
#pragma once

#include "source/vo/vo_object.hpp"

#include <bit>
#include <cstdlib>
#include <cstring>

namespace vo {

template <class T> struct Array {
    using Item = T;
    static_assert(std::is_trivially_copyable_v<T> && alignof(T) <= 8);

    voObj base;
    int64_t length; ///< In items.

    T *items() { return reinterpret_cast<T *>(this + 1); }
};

} // namespace vo

struct voString : vo::Array<uint32_t> {};
struct voVector : vo::Array<voObj *> {};
struct voBuffer : vo::Array<uint8_t> {};

namespace vo {

/// Most items an array can have.
template <class A> inline constexpr int64_t
    mostItems = (INT64_MAX / 2 - int64_t{sizeof(A)}) / int64_t{sizeof(typename A::Item)};

/// Room that every array of `length` items in a block of its own has at least: rounded up by up
/// to a quarter, so that appending one by one costs constant time, and the room needs no field.
constexpr int64_t roomFor(int64_t length) {
    if (length <= 2) return 2;
    int64_t step = int64_t(std::bit_floor(uint64_t(length))) / 4;
    step = step < 2 ? 2 : step;
    return (length + step - 1) / step * step;
}

template <class A> int64_t blockSize(int64_t length) {
    return int64_t{sizeof(A)} + roomFor(length) * int64_t{sizeof(typename A::Item)};
}

/// A new array whose items are not set. `length` must not exceed `mostItems`.
template <class A> A *createArray(voSort *sort, int64_t length) {
    auto *array = reinterpret_cast<A *>(vo___ObjCreate(blockSize<A>(length), sort));
    array->length = length;
    return array;
}

/// A new array with the items at `items`, which it retains when they are objects, and room for
/// `length` items in all. `count` must not exceed `length`; the rest is not set.
template <class A>
A *copyArray(voSort *sort, const typename A::Item *items, int64_t count, int64_t length) {
    A *array = createArray<A>(sort, length);
    if (count) std::memcpy(array->items(), items, size_t(count) * sizeof(*items));
    if constexpr (std::is_same_v<A, voVector>)
        for (int64_t i = 0; i < count; ++i)
            (void)retained(array->items()[i]);
    return array;
}

/// Makes the caller's array private and `length` items long, and returns it. Items that it gains
/// are not set; objects that it loses are released. `length` must not exceed `mostItems`.
template <class A> A *resizeArray(A **ref, int64_t length) {
    A *array = *ref;
    // How much room there is in a chunk is not known.
    if (!isSole(array) || (chunkTag(&array->base) && length > array->length)) {
        int64_t count = length < array->length ? length : array->length;
        *ref = copyArray<A>(sortOf(&array->base), array->items(), count, length);
        release(array);
        return *ref;
    }
    if constexpr (std::is_same_v<A, voVector>)
        for (int64_t i = length; i < array->length; ++i)
            release(array->items()[i]);
    if (roomFor(length) > roomFor(array->length)) {
        *ref = array = reinterpret_cast<A *>(vo___ObjResize(&array->base, blockSize<A>(length)));
    }
    array->length = length;
    return array;
}

/// Makes the caller's array private and keeps the `count` items from `from` only. Not for objects.
template <class A> void keepRange(A **ref, int64_t from, int64_t count) {
    static_assert(!std::is_same_v<A, voVector>);
    A *array = *ref;
    if (isSole(array)) {
        if (from)
            std::memmove(array->items(), array->items() + from,
                         size_t(count) * sizeof(typename A::Item));
        array->length = count;
        return;
    }
    *ref = copyArray<A>(sortOf(&array->base), array->items() + from, count, count);
    release(array);
}

} // namespace vo
