// Vectors that need no allocation while they are small.
#pragma once

#include "vo/vo_memory.h"

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace vo {

/// Plain items, the first `inlineRoom` of them in the vector itself. New items are not set.
template <class T, size_t inlineRoom> class InlineVector {
    static_assert(std::is_trivially_copyable_v<T> && alignof(T) <= 8);

  public:
    InlineVector() = default;
    InlineVector(const InlineVector &other) {
        for (size_t i = 0; i < other.length; ++i)
            push(other.items[i]);
    }
    InlineVector &operator=(const InlineVector &) = delete;
    ~InlineVector() {
        if (items != own()) voMemFree(items);
    }

    T *data() { return items; }
    const T *data() const { return items; }
    size_t size() const { return length; }
    size_t room() const { return most; }
    bool isFull() const { return length == most; }
    T &operator[](size_t index) { return items[index]; }
    T &back() { return items[length - 1]; }

    void push(const T &item) {
        if (isFull()) grow();
        items[length++] = item;
    }

    void pop() { --length; }

    /// Must not exceed the room.
    void resize(size_t count) { length = count; }

    /// Twice the room.
    [[gnu::noinline]] void grow() {
        T *larger = static_cast<T *>(voMemAllocN(int64_t(2 * most), int64_t{sizeof(T)}));
        voMemCopyN(larger, items, int64_t(length), int64_t{sizeof(T)});
        if (items != own()) voMemFree(items);
        items = larger;
        most *= 2;
    }

  private:
    T *own() { return reinterpret_cast<T *>(memory); }

    alignas(8) unsigned char memory[inlineRoom * sizeof(T)];
    T *items = own();
    size_t length = 0;
    size_t most = inlineRoom;
};

} // namespace vo
