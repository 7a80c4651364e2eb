/** @file
 *  An ordered set of namespace mappings with at most one for each prefix and at most one for the
 *  default namespace, such as the declarations of one element.
 *
 *  Placing a mapping removes the one that had its prefix before. The mapping for the default
 *  namespace counts as one with a prefix of its own. Only xmlNsNamespaceMapSetMappingsVector(),
 *  which replaces all mappings at once, chooses between mappings of one prefix by another rule.
 *
 *  Lookups take constant time, whatever the size of the map. So does appending a mapping with a
 *  prefix that is new to the map; other changes take time in proportion to its length at most.
 *  Indexes count from 0; one outside the map aborts. */
#ifndef XML_XML_NS_NAMESPACE_MAP_H
#define XML_XML_NS_NAMESPACE_MAP_H

#include "vo/vo_vector.h"
#include "xml/xml_ns_namespace_mapping.h"

VO_BEGIN_DECLS

typedef struct XML_NS_NAMESPACE_MAP XML_NS_NAMESPACE_MAP; /**< A namespace map. */

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *xmlNsNamespaceMapSort(void);
VO_API XML_NS_NAMESPACE_MAP *xmlNsNamespaceMapRetain(XML_NS_NAMESPACE_MAP *obj);
VO_API void xmlNsNamespaceMapRelease(XML_NS_NAMESPACE_MAP *obj);
VO_API voObj *xmlNsNamespaceMapObj(XML_NS_NAMESPACE_MAP *obj);
VO_API XML_NS_NAMESPACE_MAP *xmlNsNamespaceMapFrom(voObj *obj);
VO_NEW voString *xmlNsNamespaceMapToString(XML_NS_NAMESPACE_MAP *obj);
VO_API int64_t xmlNsNamespaceMapCompare(XML_NS_NAMESPACE_MAP *objA, XML_NS_NAMESPACE_MAP *objB);
VO_API int xmlNsNamespaceMapEquals(XML_NS_NAMESPACE_MAP *objA, XML_NS_NAMESPACE_MAP *objB);
VO_NEW XML_NS_NAMESPACE_MAP *xmlNsNamespaceMapCreateFrom(XML_NS_NAMESPACE_MAP *source);
/** @} */

/** Makes an empty map. */
VO_NEW XML_NS_NAMESPACE_MAP *xmlNsNamespaceMapCreate(void);

/** The map as a record: under "mappings" an array of the records of its mappings, in order, also
 *  when it is empty. */
VO_NEW voStore *xmlNsNamespaceMapStore(XML_NS_NAMESPACE_MAP *map);

/** Reads what xmlNsNamespaceMapStore() gives. Never fails: array entries that are not records are
 *  skipped, and of several mappings with one prefix one is kept, as by
 *  xmlNsNamespaceMapSetMappingsVector(). */
VO_NEW XML_NS_NAMESPACE_MAP *xmlNsNamespaceMapRestore(voStore *store);

/** The number of mappings. */
VO_API int64_t xmlNsNamespaceMapLength(XML_NS_NAMESPACE_MAP *map);

/** Replaces the map by an empty one. */
VO_API void xmlNsNamespaceMapClear(XML_NS_NAMESPACE_MAP **map);

/** @name All mappings at once
 *  The mappings as a vector, in their order. A vector that is set must hold nothing but mappings
 *  (XML_NS_NAMESPACE_MAPPING). It replaces all mappings of the map. Where several of its mappings
 *  have one prefix, only one is taken, at its place: the first if there are two, the last if there
 *  are more. @{ */
VO_NEW voVector *xmlNsNamespaceMapMappingsVector(XML_NS_NAMESPACE_MAP *map);
VO_API void xmlNsNamespaceMapSetMappingsVector(XML_NS_NAMESPACE_MAP **map, voVector *vec);
/** @} */

/** @name One mapping by its index
 *  A mapping that has the prefix of the one placed is removed, so that one may end up at
 *  `index` - 1. @{ */
VO_NEW XML_NS_NAMESPACE_MAPPING *xmlNsNamespaceMapMappingAt(XML_NS_NAMESPACE_MAP *map,
                                                            int64_t index);
VO_API void xmlNsNamespaceMapSetMappingAt(XML_NS_NAMESPACE_MAP **map, int64_t index,
                                          XML_NS_NAMESPACE_MAPPING *mapping);
VO_API void xmlNsNamespaceMapDelMappingAt(XML_NS_NAMESPACE_MAP **map, int64_t index);
/** @} */

/** @name Inserting
 *  In front of the mapping at `index`, or at the end when that is the length. A map goes in as one
 *  block in its own order; it may be the map itself, which leaves the content as it is. @{ */
VO_API void xmlNsNamespaceMapInsertMapping(XML_NS_NAMESPACE_MAP **map, int64_t index,
                                           XML_NS_NAMESPACE_MAPPING *mapping);
VO_API void xmlNsNamespaceMapPrependMapping(XML_NS_NAMESPACE_MAP **map,
                                            XML_NS_NAMESPACE_MAPPING *mapping);
VO_API void xmlNsNamespaceMapAppendMapping(XML_NS_NAMESPACE_MAP **map,
                                           XML_NS_NAMESPACE_MAPPING *mapping);
VO_API void xmlNsNamespaceMapInsert(XML_NS_NAMESPACE_MAP **map, int64_t index,
                                    XML_NS_NAMESPACE_MAP *other);
VO_API void xmlNsNamespaceMapPrepend(XML_NS_NAMESPACE_MAP **map, XML_NS_NAMESPACE_MAP *other);
VO_API void xmlNsNamespaceMapAppend(XML_NS_NAMESPACE_MAP **map, XML_NS_NAMESPACE_MAP *other);
/** @} */

/** Puts the mapping in the place of the one that has its prefix, or appends it when there is
 *  none. */
VO_API void xmlNsNamespaceMapSetMapping(XML_NS_NAMESPACE_MAP **map,
                                        XML_NS_NAMESPACE_MAPPING *mapping);

/** @name Lookups
 *  By prefix, or for the default namespace; and by namespace name the first mapping, or the first
 *  with a prefix, in the order of the map. Null when there is none. A mapping without namespace is
 *  found by its prefix only. @{ */
VO_NEW XML_NS_NAMESPACE_MAPPING *xmlNsNamespaceMapMappingForDefault(XML_NS_NAMESPACE_MAP *map);
VO_NEW XML_NS_NAMESPACE_MAPPING *xmlNsNamespaceMapMappingForPrefix(XML_NS_NAMESPACE_MAP *map,
                                                                   voString *prefix);
VO_NEW XML_NS_NAMESPACE_MAPPING *xmlNsNamespaceMapMappingForNamespace(XML_NS_NAMESPACE_MAP *map,
                                                                      voString *ns);
VO_NEW XML_NS_NAMESPACE_MAPPING *
xmlNsNamespaceMapPrefixMappingForNamespace(XML_NS_NAMESPACE_MAP *map, voString *ns);
VO_API int xmlNsNamespaceMapHasMappingForDefault(XML_NS_NAMESPACE_MAP *map);
VO_API int xmlNsNamespaceMapHasMappingForPrefix(XML_NS_NAMESPACE_MAP *map, voString *prefix);
VO_API int xmlNsNamespaceMapHasMappingForNamespace(XML_NS_NAMESPACE_MAP *map, voString *ns);
VO_API int xmlNsNamespaceMapHasPrefixMappingForNamespace(XML_NS_NAMESPACE_MAP *map, voString *ns);
/** @} */

VO_END_DECLS

#endif
