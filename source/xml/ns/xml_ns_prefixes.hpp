// Choosing prefixes for the names of a namespace tree.
#pragma once

#include "source/xml/ns/xml_ns_conversion.hpp"
#include "source/xml/ns/xml_ns_namespace_map.hpp"
#include "source/xml/ns/xml_ns_scope.hpp"

namespace xml {

using NsMappings = std::span<XML_NS_NAMESPACE_MAPPING *const>;

/// The scope of an encoder. Namespaces are found by the addresses of their names first: most names
/// of a document are the same few string objects.
class NamedScope : public Scope {
  public:
    Namespace &named(voString *name) {
        Found &found = recent.at(name);
        if (found.name != name) found = {vo::Ref(vo::retained(name)), &ns(name)};
        return *found.ns;
    }

    void bindAll(NsMappings mappings) {
        for (XML_NS_NAMESPACE_MAPPING *mapping : mappings)
            bind(mapping);
    }

  private:
    struct Found {
        vo::Ref<voString> name;
        Namespace *ns = nullptr;
    };
    Recent<Found> recent;
};

/// Decides what is declared where, and which prefix each name gets: the earliest suitable one in
/// scope. Namespaces that no map binds are declared on the elements at the top.
class PrefixChoice {
  public:
    PrefixChoice();

    /// How the bindings of an element differ from those around it.
    struct Change {
        size_t mark = 0; ///< What was bound outside.
        /// The default namespace that this element has cancelled for itself, so that each child
        /// element must declare it again.
        XML_NS_NAMESPACE_MAPPING *cancelled = nullptr;
    };

    /// Binds what an element declares: the `pending` mappings from further out, except those whose
    /// prefix its own map has, and then its own map, which is kept. Afterwards declarations() are
    /// those of this element. An element without a namespace cancels a default namespace in force.
    Change enter(vo::Ref<XML_NS_NAMESPACE_MAP> optionalOwn, bool hasNamespace, NsMappings pending);
    void leave(const Change &change) { scope.undo(change.mark); }

    NsMappings declarations() const { return declared; }

    /// The prefix of an element or attribute in that namespace; null for none.
    voString *elementPrefix(voString *optionalNs);
    voString *attributePrefix(voString *optionalNs);

    /// Generates prefixes for namespaces that no map binds; `top` then declares them.
    void generate(const vo::Vec<Namespace *> &unbound);

    /// Whether a map in force binds the prefix "xml".
    bool bindsXml() { return scope.at(xmlPrefix).state.mapping; }

    const vo::Ref<voString> xmlPrefix;
    NamedScope scope;
    vo::Vec<XML_NS_NAMESPACE_MAPPING *> top; ///< What every element at the top declares.

  private:
    XML_NS_NAMESPACE_MAPPING *cancelDefault();
    bool isXml(voString *ns) { return &scope.named(ns) == xmlNamespace; }

    vo::Ref<XML_NS_NAMESPACE_MAPPING> noDefault;
    Namespace *xmlNamespace;
    vo::Vec<XML_NS_NAMESPACE_MAPPING *> declared;
    vo::Vec<vo::Ref<XML_NS_NAMESPACE_MAPPING>> generated;
    vo::Vec<vo::Ref<XML_NS_NAMESPACE_MAP>> kept; ///< Maps whose mappings the scope borrows.
};

} // namespace xml
