// Finding things by a string.
#pragma once

#include "source/vo/vo_allocator.hpp"
#include "source/vo/vo_array.hpp"
#include "source/vo/vo_hash.hpp"

#include <deque>

namespace xml {

/// Whether two strings are equal. Equal names are mostly one object.
inline bool sameText(voString *a, voString *b) {
    return a == b ||
           (a->length == b->length &&
            std::memcmp(a->items(), b->items(), size_t(a->length) * sizeof(uint32_t)) == 0);
}

/// The same where either may be absent. An absent string equals only an absent one.
inline bool sameOptionalText(voString *optionalA, voString *optionalB) {
    return optionalA && optionalB ? sameText(optionalA, optionalB) : optionalA == optionalB;
}

/// Entries by their `key`, each made when it is first asked for and never removed. An entry keeps
/// its address. The hash is keyed, so that no document can be made to collide.
template <class Entry> class StringTable {
  public:
    StringTable() = default;
    StringTable(const StringTable &) = delete;
    StringTable &operator=(const StringTable &) = delete;

    Entry *find(voString *key) const {
        return slots.empty() ? nullptr : slots[place(key, hash(key))].entry;
    }

    Entry &at(voString *key) {
        if (entries.size() * 2 >= slots.size()) grow();
        const uint64_t keyHash = hash(key);
        Slot &slot = slots[place(key, keyHash)];
        if (slot.entry) return *slot.entry;
        Entry &added = entries.emplace_back();
        added.key = vo::Ref(vo::retained(key));
        slot = {keyHash, &added};
        return added;
    }

    size_t size() const { return entries.size(); }

  private:
    /// The hash stands here so that other entries are not looked at.
    struct Slot {
        uint64_t hash = 0;
        Entry *entry = nullptr; ///< Null where free.
    };

    static uint64_t hash(voString *key) {
        return vo::hashBytes(key->items(), size_t(key->length) * sizeof(uint32_t));
    }

    /// The index of the slot of `key`, or of the free one where it belongs.
    size_t place(voString *key, uint64_t keyHash) const {
        for (size_t i = keyHash;; ++i) {
            const Slot &slot = slots[i & (slots.size() - 1)];
            if (!slot.entry || (slot.hash == keyHash && sameText(slot.entry->key, key)))
                return i & (slots.size() - 1);
        }
    }

    void grow() {
        vo::Vec<Slot> former(slots.empty() ? 16 : slots.size() * 4);
        former.swap(slots);
        for (const Slot &slot : former)
            if (slot.entry) slots[place(slot.entry->key, slot.hash)] = slot;
    }

    std::deque<Entry, vo::Allocator<Entry>> entries;
    vo::Vec<Slot> slots; ///< None or a power of two; at most half of them used.
};

} // namespace xml
