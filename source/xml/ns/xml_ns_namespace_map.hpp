// The fields of a namespace map, for code that builds or reads it in place.
#pragma once

#include "source/vo/vo_array.hpp"
#include "source/xml/ns/xml_ns_namespace_mapping.hpp"
#include "xml/xml_ns_namespace_map.h"

#include <span>

namespace xml {

struct NamespaceIndex;

} // namespace xml

struct XML_NS_NAMESPACE_MAP {
    voObj base;
    voVector *mappings;         ///< No two have one prefix.
    xml::NamespaceIndex *index; ///< Of exactly these mappings; null when they are few.

    auto fields() { return std::tie(mappings, index); }
};

namespace xml {

inline std::span<XML_NS_NAMESPACE_MAPPING *> mappingsOf(const XML_NS_NAMESPACE_MAP *map) {
    return {reinterpret_cast<XML_NS_NAMESPACE_MAPPING **>(map->mappings->items()),
            size_t(map->mappings->length)};
}

/// The mapping of a prefix, or of the default namespace when that is null. Not a new reference.
XML_NS_NAMESPACE_MAPPING *findMapping(const XML_NS_NAMESPACE_MAP *map, voString *optionalPrefix);

} // namespace xml

extern "C" {
/// Makes the index (the cache of the name) anew from the mappings, or drops it when they are few.
/// The map must be private to the caller.
void xml___NsNamespaceMapBuildCache(XML_NS_NAMESPACE_MAP **map);

/// Removes the other mapping that has the prefix of the one at `index`, if there is one. Returns
/// where the mapping from `index` stands then, which the map's own index need not know yet. The
/// map must be private to the caller.
int64_t xml___NsNamespaceMapDeleteDuplicate(XML_NS_NAMESPACE_MAP **map, int64_t index);
}
