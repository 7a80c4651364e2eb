// The namespace bindings that hold at a place.
#pragma once

#include "source/xml/ns/xml_ns_namespace_mapping.hpp"
#include "source/xml/ns/xml_ns_string_table.hpp"

namespace xml {

struct Binding;

/// A place in a circular list. A link that was taken out still knows its neighbours and can be put
/// back, once all later changes to the list have been undone.
struct Link {
    Link *previous = this;
    Link *next = this;
    Binding *binding = nullptr; ///< Null in the head of the list, which is both its ends.

    void takeOut() const {
        previous->next = next;
        next->previous = previous;
    }
    void putBack() {
        previous->next = this;
        next->previous = this;
    }
};

/// A namespace name and the bindings that bind it, earliest first.
struct Namespace {
    vo::Ref<voString> key;
    Link all;
    Link prefixed;
    bool isGathered = false; ///< Whether the encoder has found that it needs a prefix.

    /// The earliest, or the earliest with a prefix; null when there is none.
    Binding *first() const { return all.next->binding; }
    Binding *firstPrefixed() const { return prefixed.next->binding; }
};

/// What a prefix is bound to. There is one for every prefix that was ever looked up.
struct Binding {
    struct State {
        XML_NS_NAMESPACE_MAPPING *mapping = nullptr; ///< Null: the prefix is not bound.
        Namespace *ns = nullptr;                     ///< Null: it is bound to no namespace.
        int64_t order = 0;                           ///< Earlier bindings have smaller numbers.
        Link all;                                    ///< In the lists of `ns`, while there is one.
        Link prefixed;
    };

    vo::Ref<voString> key; ///< The prefix; null for the default namespace.
    State state;

    Binding() { state.all.binding = state.prefixed.binding = this; }
};

/// An ordered set of mappings, one for each prefix, found by prefix and by namespace in constant
/// time. Mappings are borrowed: whoever uses the set keeps them.
class Bindings {
  public:
    /// The binding of a prefix, or of the default namespace when that is null.
    Binding &at(voString *optionalPrefix) {
        return optionalPrefix ? prefixes.at(optionalPrefix) : unprefixed;
    }
    /// The same, but null when the prefix was never looked up.
    Binding *find(voString *prefix) const { return prefixes.find(prefix); }

    const Binding &forDefault() const { return unprefixed; }
    Binding &forDefault() { return unprefixed; }

    Namespace &ns(voString *name) { return namespaces.at(name); }
    Namespace *findNamespace(voString *name) const { return namespaces.find(name); }

    /// The place before, or after, all bindings there are.
    int64_t earliest() { return --first; }
    int64_t latest() { return ++last; }

    /// Binds `binding`, which is not bound, to the namespace of `mapping`. `order` is a new place
    /// or one that has become free.
    void bind(Binding &binding, XML_NS_NAMESPACE_MAPPING *mapping, int64_t order);

    void unbind(Binding &binding);

    /// Prefixes and namespaces that the set remembers, bound or not.
    size_t size() const { return prefixes.size() + namespaces.size(); }

  private:
    StringTable<Binding> prefixes;
    StringTable<Namespace> namespaces;
    Binding unprefixed;
    int64_t first = 0;
    int64_t last = 0;
};

/// The bindings in force while a tree is walked: elements bind on the way in, and all that they
/// bound is undone on the way out. Every step takes constant time and nothing is copied.
class Scope : public Bindings {
  public:
    /// Binds a prefix anew, as the latest binding.
    void bind(XML_NS_NAMESPACE_MAPPING *mapping);

    /// The number of bindings so far, for undo(), which undoes the later ones.
    size_t mark() const { return undoing.size(); }
    void undo(size_t mark);

  private:
    struct Undo {
        Binding *binding;
        Binding::State former;
    };
    vo::Vec<Undo> undoing;
};

} // namespace xml
