#include "source/xml/ns/xml_ns_namespace_map.hpp"

#include "source/xml/base/xml_object.hpp"
#include "source/xml/ns/xml_ns_namespace_index.hpp"

#include <algorithm>

using vo::assign;
using vo::Ref;
using vo::retained;
using xml::findMapping;
using xml::mappingsOf;

using Map = XML_NS_NAMESPACE_MAP;
using Mapping = XML_NS_NAMESPACE_MAPPING;

XML_OBJECT(NsNamespaceMap, XML_NS_NAMESPACE_MAP, map);

// ---------------------------------------------------------------- finding

Mapping *xml::findMapping(const Map *map, voString *optionalPrefix) {
    if (map->index) return map->index->find(optionalPrefix);
    for (Mapping *mapping : mappingsOf(map))
        if (vo::sameOptionalText(mapping->prefix, optionalPrefix)) return mapping;
    return nullptr;
}

/// The first mapping, or the first with a prefix, that binds a namespace.
static Mapping *findByNamespace(const Map *map, voString *ns, bool prefixed) {
    if (map->index) return map->index->findByNamespace(ns, prefixed);
    for (Mapping *mapping : mappingsOf(map))
        if (mapping->ns && (mapping->prefix || !prefixed) && vo::sameText(mapping->ns, ns))
            return mapping;
    return nullptr;
}

/// Where the mapping of a prefix stands, not counting the one at `except`; -1 when there is none.
static int64_t positionOf(const Map *map, voString *optionalPrefix, int64_t except) {
    const Mapping *known = map->index ? map->index->find(optionalPrefix) : nullptr;
    if (map->index && !known) return -1;
    const auto mappings = mappingsOf(map);
    for (size_t i = 0; i < mappings.size(); ++i) {
        if (int64_t(i) == except) continue;
        if (known ? mappings[i] == known
                  : vo::sameOptionalText(mappings[i]->prefix, optionalPrefix))
            return int64_t(i);
    }
    return -1;
}

// ---------------------------------------------------------------- changing

/// A map with more mappings than this has an index.
static constexpr int64_t mostUnindexed = 8;

static void dropIndex(Map *map) { vo::release(std::exchange(map->index, nullptr)); }

void xml___NsNamespaceMapBuildCache(Map **map) {
    VO_ASSERT_REF(map);
    dropIndex(*map);
    if ((*map)->mappings->length > mostUnindexed)
        (*map)->index = xml::createNamespaceIndex(mappingsOf(*map));
}

/// Begins a change of a private map. It gives up an index that it shares with a copy of the map,
/// which keeps it.
static Map *beginChange(Map *map) {
    if (map->index && !vo::isSole(map->index)) dropIndex(map);
    return map;
}

/// Ends a change that either kept the index up to date or dropped it. Makes the index anew when it
/// still holds many prefixes and namespaces that the map no longer has.
static void endChange(Map *map) {
    const int64_t length = map->mappings->length;
    const bool hasIndex = map->index != nullptr;
    if (hasIndex != (length > mostUnindexed) ||
        (hasIndex && int64_t(map->index->bindings.size()) > 4 * length))
        xml___NsNamespaceMapBuildCache(&map);
}

static void removeAt(Map *map, int64_t index) {
    Ref removed(voVectorObjAt(map->mappings, index));
    if (map->index) map->index->remove(xmlNsNamespaceMappingFrom(removed));
    voVectorDelAt(&map->mappings, index);
}

int64_t xml___NsNamespaceMapDeleteDuplicate(Map **map, int64_t index) {
    VO_ASSERT_REF(map);
    Ref placed(xmlNsNamespaceMapMappingAt(*map, index));
    const int64_t duplicate = positionOf(*map, placed->prefix, index);
    if (duplicate < 0) return index;
    removeAt(*map, duplicate);
    return duplicate < index ? index - 1 : index;
}

static void setMappings(Map *map, const vo::Vec<voObj *> &mappings) {
    const auto length = int64_t(mappings.size());
    voVector *vec = vo::copyArray<voVector>(voVectorSort(), mappings.data(), length, length);
    vo::release(std::exchange(map->mappings, vec));
}

/// Leaves one mapping for each prefix: the earlier of two, the last of more. That is what remains
/// when, for each mapping in turn, the first other one with its prefix is removed.
static void removeDuplicates(Map *map) {
    struct Seen {
        Ref<voString> key;
        int64_t count = 0;
        size_t kept = 0;
    };
    xml::StringTable<Seen> prefixes;
    Seen unprefixed;
    vo::Vec<voObj *> kept;
    for (Mapping *mapping : mappingsOf(map)) {
        Seen &seen = mapping->prefix ? prefixes.at(mapping->prefix) : unprefixed;
        if (++seen.count == 2) continue;
        if (seen.count > 2) kept[seen.kept] = nullptr;
        seen.kept = kept.size();
        kept.push_back(vo::obj(mapping));
    }
    std::erase(kept, nullptr);
    if (int64_t(kept.size()) < map->mappings->length) setMappings(map, kept);
}

/// Removes the older duplicates of the mappings of `other`, which were inserted at `index`: all
/// mappings outside the inserted ones that have the prefix of one of them.
static void removeReplaced(Map *map, int64_t index, const Map *other) {
    vo::Vec<voObj *> kept;
    int64_t position = -index;
    for (Mapping *mapping : mappingsOf(map)) {
        const bool inserted = position >= 0 && position < other->mappings->length;
        if (inserted || !findMapping(other, mapping->prefix)) kept.push_back(vo::obj(mapping));
        ++position;
    }
    setMappings(map, kept);
}

// ---------------------------------------------------------------- the map

Map *xmlNsNamespaceMapCreate(void) {
    auto *map = vo::create<Map>(xmlNsNamespaceMapSort());
    map->mappings = voVectorCreate();
    return map;
}

voStore *xmlNsNamespaceMapStore(Map *map) {
    VO_ASSERT(map);
    Ref array(voStoreCreateArray());
    for (Mapping *mapping : mappingsOf(map))
        voStoreAppendStore(array.edit(), Ref(xmlNsNamespaceMappingStore(mapping)));
    voStore *store = voStoreCreate();
    voStoreSetStoreCstr(&store, "mappings", -1, array);
    return store;
}
Map *xmlNsNamespaceMapRestore(voStore *store) {
    VO_ASSERT(store);
    Ref array(voStoreStoreCstr(store, "mappings", -1));
    Map *map = xmlNsNamespaceMapCreate();
    if (!array) return map;
    Ref vec(voVectorCreate());
    for (int64_t i = 0; i < voStoreLength(array); ++i)
        if (Ref record(voStoreStoreAt(array, i)); record)
            voVectorAppendObj(vec.edit(),
                              xmlNsNamespaceMappingObj(Ref(xmlNsNamespaceMappingRestore(record))));
    xmlNsNamespaceMapSetMappingsVector(&map, vec);
    return map;
}

int64_t xmlNsNamespaceMapLength(Map *map) { return VO_READ(map)->mappings->length; }

void xmlNsNamespaceMapClear(Map **map) {
    VO_ASSERT_REF(map);
    vo::release(std::exchange(*map, xmlNsNamespaceMapCreate()));
}

voVector *xmlNsNamespaceMapMappingsVector(Map *map) { return retained(VO_READ(map)->mappings); }
void xmlNsNamespaceMapSetMappingsVector(Map **map, voVector *vec) {
    VO_ASSERT_REF(map);
    VO_ASSERT(voVectorContainsOnly( vec, xmlNsNamespaceMappingSort() ));
    Map *own = VO_EDIT(map);
    assign(own->mappings, vec);
    removeDuplicates(own);
    xml___NsNamespaceMapBuildCache(&own);
}

Mapping *xmlNsNamespaceMapMappingAt(Map *map, int64_t index) {
    return xmlNsNamespaceMappingFrom(voVectorObjAt(VO_READ(map)->mappings, index));
}
void xmlNsNamespaceMapSetMappingAt(Map **map, int64_t index, Mapping *mapping) {
    VO_ASSERT_REF(map);
    VO_ASSERT(mapping);
    Map *own = beginChange(VO_EDIT(map));
    Ref former(xmlNsNamespaceMapMappingAt(own, index));
    const int64_t order = own->index ? own->index->remove(former) : 0;
    voVectorSetObjAt(&own->mappings, index, vo::obj(mapping));
    xml___NsNamespaceMapDeleteDuplicate(&own, index);
    if (own->index) own->index->bind(mapping, order);
    endChange(own);
}
void xmlNsNamespaceMapDelMappingAt(Map **map, int64_t index) {
    Map *own = beginChange(VO_EDIT(map));
    removeAt(own, index);
    endChange(own);
}

void xmlNsNamespaceMapInsertMapping(Map **map, int64_t index, Mapping *mapping) {
    VO_ASSERT_REF(map);
    VO_ASSERT(mapping);
    Map *own = beginChange(VO_EDIT(map));
    const bool atEnd = index == own->mappings->length;
    voVectorInsertObj(&own->mappings, index, vo::obj(mapping));
    xml___NsNamespaceMapDeleteDuplicate(&own, index);
    if (own->index && atEnd)
        own->index->append(mapping);
    else if (own->index && index == 0)
        own->index->prepend(mapping);
    else
        dropIndex(own);
    endChange(own);
}
void xmlNsNamespaceMapPrependMapping(Map **map, Mapping *mapping) {
    xmlNsNamespaceMapInsertMapping(map, 0, mapping);
}
void xmlNsNamespaceMapAppendMapping(Map **map, Mapping *mapping) {
    VO_ASSERT_REF(map);
    xmlNsNamespaceMapInsertMapping(map, (*map)->mappings->length, mapping);
}

void xmlNsNamespaceMapInsert(Map **map, int64_t index, Map *other) {
    VO_ASSERT_REF(map);
    VO_ASSERT(other);
    Ref source(retained(other)); // It may be the map itself, which then is copied.
    Map *own = beginChange(VO_EDIT(map));
    const auto added = mappingsOf(source);
    const bool atEnd = index == own->mappings->length;
    const bool replaces = std::any_of(added.begin(), added.end(), [&](const Mapping *mapping) {
        return findMapping(own, mapping->prefix);
    });
    voVectorInsert(&own->mappings, index, source->mappings);
    if (replaces) removeReplaced(own, index, source);
    if (own->index && atEnd && !replaces)
        for (Mapping *mapping : added)
            own->index->append(mapping);
    else
        dropIndex(own);
    endChange(own);
}
void xmlNsNamespaceMapPrepend(Map **map, Map *other) { xmlNsNamespaceMapInsert(map, 0, other); }
void xmlNsNamespaceMapAppend(Map **map, Map *other) {
    VO_ASSERT_REF(map);
    xmlNsNamespaceMapInsert(map, (*map)->mappings->length, other);
}

void xmlNsNamespaceMapSetMapping(Map **map, Mapping *mapping) {
    VO_ASSERT_REF(map);
    VO_ASSERT(mapping);
    const int64_t position = positionOf(*map, mapping->prefix, -1);
    if (position < 0)
        xmlNsNamespaceMapAppendMapping(map, mapping);
    else
        xmlNsNamespaceMapSetMappingAt(map, position, mapping);
}

// ---------------------------------------------------------------- lookups

Mapping *xmlNsNamespaceMapMappingForDefault(Map *map) {
    return retained(findMapping(VO_READ(map), nullptr));
}
Mapping *xmlNsNamespaceMapMappingForPrefix(Map *map, voString *prefix) {
    return retained(findMapping(VO_READ(map), VO_READ(prefix)));
}
Mapping *xmlNsNamespaceMapMappingForNamespace(Map *map, voString *ns) {
    return retained(findByNamespace(VO_READ(map), VO_READ(ns), false));
}
Mapping *xmlNsNamespaceMapPrefixMappingForNamespace(Map *map, voString *ns) {
    return retained(findByNamespace(VO_READ(map), VO_READ(ns), true));
}
int xmlNsNamespaceMapHasMappingForDefault(Map *map) {
    return findMapping(VO_READ(map), nullptr) != nullptr;
}
int xmlNsNamespaceMapHasMappingForPrefix(Map *map, voString *prefix) {
    return findMapping(VO_READ(map), VO_READ(prefix)) != nullptr;
}
int xmlNsNamespaceMapHasMappingForNamespace(Map *map, voString *ns) {
    return findByNamespace(VO_READ(map), VO_READ(ns), false) != nullptr;
}
int xmlNsNamespaceMapHasPrefixMappingForNamespace(Map *map, voString *ns) {
    return findByNamespace(VO_READ(map), VO_READ(ns), true) != nullptr;
}
