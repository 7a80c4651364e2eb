// How a long namespace map finds its mappings.
#pragma once

#include "source/xml/ns/xml_ns_scope.hpp"

#include <span>

namespace xml {

/// Bindings as an object, so that copies of a map share them until one of them changes. It borrows
/// the mappings of the map it belongs to.
struct NamespaceIndex {
    voObj base;
    Bindings bindings;

    XML_NS_NAMESPACE_MAPPING *find(voString *optionalPrefix) const;
    XML_NS_NAMESPACE_MAPPING *findByNamespace(voString *ns, bool prefixed) const;

    void append(XML_NS_NAMESPACE_MAPPING *mapping) { bind(mapping, bindings.latest()); }
    void prepend(XML_NS_NAMESPACE_MAPPING *mapping) { bind(mapping, bindings.earliest()); }
    void bind(XML_NS_NAMESPACE_MAPPING *mapping, int64_t order) {
        bindings.bind(bindings.at(mapping->prefix), mapping, order);
    }

    /// Unbinds a mapping; gives its place in the order, which another mapping may take.
    int64_t remove(XML_NS_NAMESPACE_MAPPING *mapping);
};

NamespaceIndex *createNamespaceIndex(std::span<XML_NS_NAMESPACE_MAPPING *> mappings);

} // namespace xml
