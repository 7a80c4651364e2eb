#include "source/vo/vo_table.hpp"

#include "source/vo/vo_string_key.hpp"
#include "source/vo/vo_words.hpp"
#include "vo/vo_string.h"

#include <algorithm>

namespace vo {
namespace {

/// Up to this many keys are found faster by comparing each than by a hash table.
constexpr int64_t fewKeys = 8;

/// A used slot is the index of an entry plus 1, below the high bits of its key's hash, which spare
/// most comparisons with other keys. An unused one is 0.
constexpr int indexBits = 40;
constexpr uint64_t indexMask = (uint64_t{1} << indexBits) - 1;

/// The slot of `key`, or the unused one where it belongs.
uint64_t *slotOf(const Table &table, voString *key, uint64_t hash) {
    uint64_t mask = uint64_t(wordCount(table.slots)) - 1;
    for (uint64_t i = hash & mask;; i = (i + 1) & mask) {
        uint64_t *slot = words(table.slots) + i;
        if (!*slot) return slot;
        bool sameTag = *slot >> indexBits == hash >> indexBits;
        if (sameTag && sameText(table.key(int64_t(*slot & indexMask) - 1), key)) return slot;
    }
}

void fillSlot(Table &table, int64_t index) {
    uint64_t hash = hashText(table.key(index));
    *slotOf(table, table.key(index), hash) = (hash & ~indexMask) | uint64_t(index + 1);
}

/// Rebuilds the hash table so that a quarter to a half of it is used.
void rebuild(Table &table, int64_t keys) {
    auto room = int64_t(std::bit_ceil(uint64_t(keys))) * 2;
    if (!table.slots) table.slots = voBufferCreate();
    std::fill_n(resizeWords(&table.slots, room), room, 0);
    for (int64_t i = 0; i < keys; ++i)
        fillSlot(table, i);
}

} // namespace

int64_t Table::find(voString *key) const {
    if (isArray) return -1;
    if (slots) return int64_t(*slotOf(*this, key, hashText(key)) & indexMask) - 1;
    for (int64_t i = 0; i < length(); ++i)
        if (sameText(this->key(i), key)) return i;
    return -1;
}

void Table::set(voString *key, voObj *value) {
    int64_t known = find(key);
    if (known >= 0) return voVectorSetObjAt(&items, 2 * known + 1, value);
    voVectorAppendObj(&items, obj(key));
    voVectorAppendObj(&items, value);
    int64_t keys = length();
    VO_ASSERT(keys < int64_t(indexMask));
    if (keys <= fewKeys) return;
    if (!slots || 2 * keys > wordCount(slots)) return rebuild(*this, keys);
    resizeWords(&slots, wordCount(slots)); // To make it private.
    fillSlot(*this, keys - 1);
}

} // namespace vo
