#include "source/xml/ns/xml_ns_namespace_index.hpp"

#include "source/xml/base/xml_module.hpp"

#include <new>

namespace xml {

static void freeIndex(voObj *obj) { reinterpret_cast<NamespaceIndex *>(obj)->bindings.~Bindings(); }

static constinit voSort indexSort = {
    {nullptr, 1}, &xml___module, "XML_NS_NAMESPACE_INDEX", freeIndex};

NamespaceIndex *createNamespaceIndex(std::span<XML_NS_NAMESPACE_MAPPING *> mappings) {
    auto *index =
        reinterpret_cast<NamespaceIndex *>(vo___ObjCreate(sizeof(NamespaceIndex), &indexSort));
    new (&index->bindings) Bindings;
    for (XML_NS_NAMESPACE_MAPPING *mapping : mappings)
        index->append(mapping);
    return index;
}

XML_NS_NAMESPACE_MAPPING *NamespaceIndex::find(voString *optionalPrefix) const {
    const Binding *binding =
        optionalPrefix ? bindings.find(optionalPrefix) : &bindings.forDefault();
    return binding ? binding->state.mapping : nullptr;
}

XML_NS_NAMESPACE_MAPPING *NamespaceIndex::findByNamespace(voString *ns, bool prefixed) const {
    const Namespace *found = bindings.findNamespace(ns);
    const Binding *binding = !found ? nullptr : prefixed ? found->firstPrefixed() : found->first();
    return binding ? binding->state.mapping : nullptr;
}

int64_t NamespaceIndex::remove(XML_NS_NAMESPACE_MAPPING *mapping) {
    Binding &binding = bindings.at(mapping->prefix);
    bindings.unbind(binding);
    return binding.state.order;
}

} // namespace xml
