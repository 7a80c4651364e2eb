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
        if (tags.empty()) return findInFew(hash, isWanted);
        for (size_t i = hash & mask();; i = (i + 1) & mask()) {
            if (!tags[i]) return nullptr;
            if (tags[i] == tagOf(hash) && slots[i]->hash == hash && isWanted(slots[i]->entry))
                return &slots[i]->entry;
        }
    }

    /// Adds an entry for a key that is not there.
    Entry &add(uint64_t hash) {
        if (count >= few && 2 * count >= tags.size()) grow();
        if (blocks.empty() || blocks.back().size() == blocks.back().capacity())
            blocks.emplace_back().reserve(count + few);
        ++count;
        Node &node = blocks.back().emplace_back();
        node.hash = hash;
        if (!tags.empty()) place(node);
        return node.entry;
    }

    size_t size() const { return count; }

  private:
    struct Node {
        uint64_t hash;
        Entry entry;
    };

    /// Up to this many entries are found faster by comparing each.
    static constexpr size_t few = 8;

    size_t mask() const { return tags.size() - 1; }

    /// Bits of the hash that have no part in finding the place; never 0.
    static uint8_t tagOf(uint64_t hash) { return uint8_t(hash >> 56 | 1); }

    template <class IsWanted> Entry *findInFew(uint64_t hash, IsWanted isWanted) const {
        if (blocks.empty()) return nullptr;
        for (const Node &node : blocks.front())
            if (node.hash == hash && isWanted(node.entry)) return const_cast<Entry *>(&node.entry);
        return nullptr;
    }

    void grow() {
        const size_t room = tags.empty() ? 4 * few : 2 * tags.size();
        tags.assign(room, 0);
        slots.assign(room, nullptr);
        for (auto &block : blocks)
            for (Node &node : block)
                place(node);
    }

    void place(Node &node) {
        size_t i = node.hash & mask();
        while (tags[i])
            i = (i + 1) & mask();
        tags[i] = tagOf(node.hash);
        slots[i] = &node;
    }

    vo::Vec<vo::Vec<Node>> blocks; ///< Each as large as all before it, and never moved.
    vo::Vec<Node *> slots;         ///< As many as a power of two; only set where the tag is not 0.
    /// One byte for each slot: 0 when it is free (at least half of them are), else some bits of the
    /// entry's hash. Comparing these bytes decides most look-ups without touching an entry.
    vo::Vec<uint8_t> tags;
    size_t count = 0;
};

} // namespace xml
