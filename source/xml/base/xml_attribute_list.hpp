// The ordered list behind both types of attribute list.
#pragma once

#include "source/vo/vo_allocator.hpp"
#include "source/vo/vo_string_key.hpp"
#include "source/xml/base/xml_hash_table.hpp"
#include "vo/vo.h"

namespace xml {

/// What tells the attributes of a list apart, borrowed. A plain name is one without a namespace.
struct AttributeKey {
    voString *name;
    voString *ns; ///< Null equals only null.
};

inline bool operator==(const AttributeKey &a, const AttributeKey &b) {
    return vo::sameText(a.name, b.name) && vo::sameOptionalText(a.ns, b.ns);
}

/// The last place of each key in a run of attributes.
class LastPlaces {
  public:
    LastPlaces(int64_t begin, int64_t end) : first(begin), hashed(end - begin > mostScanned) {}

    /// Adds the key of the next attribute.
    void add(const AttributeKey &key) {
        if (hashed)
            entry(key).place = first + added;
        else
            keys[added] = key;
        ++added;
    }

    /// The place of the last attribute of the run with `key`, or -1.
    int64_t find(const AttributeKey &key) const {
        if (hashed) {
            const Entry *found = find(key, hash(key));
            return found ? found->place : -1;
        }
        int64_t i = added - 1;
        while (i >= 0 && !(keys[i] == key))
            --i;
        return i < 0 ? -1 : first + i;
    }

  private:
    static constexpr int64_t mostScanned = 16; ///< Longer runs are hashed.

    struct Entry {
        AttributeKey key;
        int64_t place;
    };

    static uint64_t hash(const AttributeKey &key) {
        return vo::hashText(key.name) * 31 + (key.ns ? vo::hashText(key.ns) : 0);
    }

    Entry *find(const AttributeKey &key, uint64_t hash) const {
        return places.find(hash, [&](const Entry &entry) { return entry.key == key; });
    }

    Entry &entry(const AttributeKey &key) {
        const uint64_t keyHash = hash(key);
        if (Entry *known = find(key, keyHash)) return *known;
        Entry &made = places.add(keyHash);
        made.key = key;
        return made;
    }

    int64_t first;
    int64_t added = 0;
    bool hashed;
    AttributeKey keys[mostScanned];
    HashTable<Entry> places;
};

/// No two attributes of a list have one key: placing an attribute removes its duplicate. A layer
/// tells the types and the key:
///
///     using List, Attribute;
///     static AttributeKey key(Attribute *);
///
/// Functions that change a list take one that is already private to the caller. They check nothing
/// themselves; the vector checks indexes.
template <class Layer> struct AttributeList {
    using List = typename Layer::List;
    using Attribute = typename Layer::Attribute;

    /// A new reference to the attribute at `index`.
    static Attribute *at(List *attrs, int64_t index) {
        return attribute(voVectorObjAt(attrs->vector, index));
    }

    /// The index of the attribute with `key`, or -1. The one at `skip` stays out of the search.
    static int64_t indexOf(List *attrs, const AttributeKey &key, int64_t skip = -1) {
        voVector *vector = attrs->vector;
        for (int64_t i = 0; i < vector->length; ++i)
            if (i != skip && keyOf(vector->items()[i]) == key) return i;
        return -1;
    }

    /// The attribute with `key`, borrowed, or null.
    static Attribute *find(List *attrs, const AttributeKey &key) {
        int64_t index = indexOf(attrs, key);
        return index < 0 ? nullptr : attribute(attrs->vector->items()[index]);
    }

    /// Removes the older duplicate of the attribute just placed at `index`, if there is one;
    /// returns where the new one stands now.
    static int64_t removeDuplicate(List *attrs, int64_t index) {
        vo::Ref placed(at(attrs, index));
        int64_t duplicate = indexOf(attrs, Layer::key(placed), index);
        if (duplicate < 0) return index;
        voVectorDelAt(&attrs->vector, duplicate);
        return duplicate < index ? index - 1 : index;
    }

    static void setAt(List *attrs, int64_t index, Attribute *attr) {
        voVectorSetObjAt(&attrs->vector, index, vo::obj(attr));
        removeDuplicate(attrs, index);
    }

    static void insert(List *attrs, int64_t index, Attribute *attr) {
        voVectorInsertObj(&attrs->vector, index, vo::obj(attr));
        removeDuplicate(attrs, index);
    }

    /// Replaces the attribute with the key of `attr`, or appends.
    static void set(List *attrs, Attribute *attr) {
        int64_t index = indexOf(attrs, Layer::key(attr));
        if (index < 0)
            voVectorAppendObj(&attrs->vector, vo::obj(attr));
        else
            voVectorSetObjAt(&attrs->vector, index, vo::obj(attr));
    }

    /// The same as inserting the attributes of `others` one behind another.
    static void insertAll(List *attrs, int64_t index, List *others) {
        int64_t count = others->vector->length;
        voVectorInsert(&attrs->vector, index, others->vector);
        removeDuplicates(attrs, index, index + count);
    }

    /// The same as appending the attributes of `vec` one by one to the empty list.
    static void assign(List *attrs, voVector *vec) {
        vo::assign(attrs->vector, vec);
        removeDuplicates(attrs, 0, vec->length);
    }

  private:
    static Attribute *attribute(voObj *obj) { return reinterpret_cast<Attribute *>(obj); }
    static AttributeKey keyOf(voObj *obj) { return Layer::key(attribute(obj)); }

    /// Removes every attribute whose key stands again in the run from `begin` to `end` that was
    /// just placed, or later in that run. Takes time in proportion to the length of the list.
    static void removeDuplicates(List *attrs, int64_t begin, int64_t end) {
        voObj **items = attrs->vector->items();
        LastPlaces places(begin, end);
        for (int64_t i = begin; i < end; ++i)
            places.add(keyOf(items[i]));
        auto stays = [&](int64_t i) {
            int64_t last = places.find(keyOf(items[i]));
            return last < 0 || last == i;
        };

        int64_t length = attrs->vector->length;
        int64_t kept = 0;
        while (kept < length && stays(kept))
            ++kept;
        if (kept == length) return; // nothing to remove: the vector may stay shared
        items = vo::resizeArray(&attrs->vector, length)->items();
        for (int64_t i = kept + 1; i < length; ++i)
            if (stays(i)) std::swap(items[kept++], items[i]);
        vo::resizeArray(&attrs->vector, kept);
    }
};

} // namespace xml
