// Values by string key, in the order in which the keys came: what dictionaries, stores and
// registries of names are made of.
#pragma once

#include "source/vo/vo_array.hpp"
#include "vo/vo_vector.h"

namespace vo {

struct Table {
    voObj base;
    voVector *items; ///< Key and value in turn; in an array, values only.
    voBuffer *slots; ///< The hash table: words, see vo_table.cpp. Null while there are few keys.
    int64_t isArray;

    auto fields() { return std::tie(items, slots, isArray); }

    int64_t length() const { return isArray ? items->length : items->length / 2; }
    voString *key(int64_t index) const {
        return reinterpret_cast<voString *>(items->items()[2 * index]);
    }
    voObj *value(int64_t index) const { return items->items()[isArray ? index : 2 * index + 1]; }

    /// The index of the entry under `key`, or -1. An array has no keys.
    int64_t find(voString *key) const;
    /// Stores a value; the table must be private and no array.
    void set(voString *key, voObj *value);
};

/// A new table without entries, of type T.
template <class T> T *createTable(voSort *sort, bool isArray) {
    T *table = create<T>(sort);
    table->items = voVectorCreate();
    table->isArray = isArray;
    return table;
}

} // namespace vo

struct voDict : vo::Table {};
struct voStore : vo::Table {};
