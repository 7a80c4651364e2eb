// Finding things by a string.
#pragma once

#include "source/vo/vo_string_key.hpp"
#include "source/xml/base/xml_hash_table.hpp"

namespace xml {

/// Entries by their `key`, each made when it is first asked for.
template <class Entry> class StringTable {
  public:
    Entry *find(voString *key) const { return find(key, vo::hashText(key)); }

    Entry &at(voString *key) {
        const uint64_t hash = vo::hashText(key);
        if (Entry *known = find(key, hash)) return *known;
        Entry &added = entries.add(hash);
        added.key = vo::Ref(vo::retained(key));
        return added;
    }

    size_t size() const { return entries.size(); }

  private:
    Entry *find(voString *key, uint64_t hash) const {
        return entries.find(hash, [&](const Entry &e) { return vo::sameText(e.key, key); });
    }

    HashTable<Entry> entries;
};

} // namespace xml
