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

    Entry *find(voString *key) const { return slots.empty() ? nullptr : *slotOf(key, hash(key)); }

    Entry &at(voString *key) {
        if (entries.size() * 2 >= slots.size()) grow();
        const uint64_t keyHash = hash(key);
        Entry *&slot = *slotOf(key, keyHash);
        if (!slot) {
            slot = &entries.emplace_back();
            slot->key = vo::Ref(vo::retained(key));
            slot->hash = keyHash;
        }
        return *slot;
    }

    size_t size() const { return entries.size(); }

  private:
    static uint64_t hash(voString *key) {
        return vo::hashBytes(key->items(), size_t(key->length) * sizeof(uint32_t));
    }

    /// The slot of `key`, or the free one where it belongs.
    Entry *const *slotOf(voString *key, uint64_t keyHash) const {
        for (size_t i = keyHash;; ++i) {
            Entry *const &slot = slots[i & (slots.size() - 1)];
            if (!slot || (slot->hash == keyHash && sameText(slot->key, key))) return &slot;
        }
    }
    Entry **slotOf(voString *key, uint64_t keyHash) {
        return const_cast<Entry **>(std::as_const(*this).slotOf(key, keyHash));
    }

    void grow() {
        slots.assign(slots.empty() ? 16 : slots.size() * 4, nullptr);
        for (Entry &entry : entries)
            *slotOf(entry.key, entry.hash) = &entry;
    }

    std::deque<Entry, vo::Allocator<Entry>> entries;
    vo::Vec<Entry *> slots; ///< None or a power of two; null where free; at most half full.
};

} // namespace xml
