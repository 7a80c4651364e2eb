// The hash table behind everything that is found by a name.
#pragma once

#include "source/vo/vo_allocator.hpp"

namespace xml {

/// Entries by the hash of their key, which the user of the table compares. Entries are never
/// removed and keep their addresses. Hashes should be keyed, so that no document can be made to
/// collide.
template <class Entry> class HashTable {
  public:
    HashTable() = default;
    HashTable(const HashTable &) = delete;
    HashTable &operator=(const HashTable &) = delete;

    /// The entry with that hash for which `isWanted` is true, or null.
    template <class IsWanted> Entry *find(uint64_t hash, IsWanted isWanted) const {
        if (slots.empty()) return nullptr;
        for (size_t i = hash;; ++i) {
            const Slot &slot = slots[i & (slots.size() - 1)];
            if (!slot.entry || (slot.hash == hash && isWanted(*slot.entry))) return slot.entry;
        }
    }

    /// Adds an entry for a key that is not there.
    Entry &add(uint64_t hash) {
        if (2 * count >= slots.size()) grow();
        ++count;
        Entry &entry = create();
        place({hash, &entry});
        return entry;
    }

    size_t size() const { return count; }

  private:
    /// The hash stands here so that looking and growing touch no other entries.
    struct Slot {
        uint64_t hash = 0;
        Entry *entry = nullptr; ///< Null where free.
    };

    static constexpr size_t fewest = 32;

    /// Entries lie in blocks, each twice as large as the one before.
    Entry &create() {
        if (blocks.empty() || blocks.back().size() == blocks.back().capacity())
            blocks.emplace_back().reserve(count + fewest);
        return blocks.back().emplace_back();
    }

    void grow() {
        vo::Vec<Slot> former(slots.empty() ? fewest : 2 * slots.size());
        former.swap(slots);
        for (const Slot &slot : former)
            if (slot.entry) place(slot);
    }

    void place(const Slot &slot) {
        size_t i = slot.hash;
        while (slots[i & (slots.size() - 1)].entry)
            ++i;
        slots[i & (slots.size() - 1)] = slot;
    }

    vo::Vec<vo::Vec<Entry>> blocks;
    vo::Vec<Slot> slots; ///< None or a power of two; at most half of them used.
    size_t count = 0;
};

} // namespace xml
