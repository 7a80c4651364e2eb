#include "source/xml/ns/xml_ns_scope.hpp"

namespace xml {

/// Puts a binding's link into the list that ends at `end`. The list is in order; mostly the new
/// link belongs at one of its ends.
static void insert(Link &end, Link &link) {
    const auto comesLater = [&](const Link *other) {
        return other->binding && other->binding->state.order > link.binding->state.order;
    };
    Link *after = end.previous;
    if (comesLater(end.next)) after = &end;
    while (comesLater(after))
        after = after->previous;
    link.previous = after;
    link.next = after->next;
    link.putBack();
}

void Bindings::bind(Binding &binding, XML_NS_NAMESPACE_MAPPING *mapping, int64_t order) {
    binding.state.mapping = mapping;
    binding.state.order = order;
    if (!mapping->ns) return;
    binding.state.ns = &ns(mapping->ns);
    insert(binding.state.ns->all, binding.state.all);
    if (binding.key) insert(binding.state.ns->prefixed, binding.state.prefixed);
}

void Bindings::unbind(Binding &binding) {
    if (binding.state.ns) {
        binding.state.all.takeOut();
        if (binding.key) binding.state.prefixed.takeOut();
    }
    binding.state.mapping = nullptr;
    binding.state.ns = nullptr;
}

void Scope::bind(XML_NS_NAMESPACE_MAPPING *mapping) {
    Binding &binding = at(mapping->prefix);
    undoing.push_back({&binding, binding.state});
    unbind(binding);
    Bindings::bind(binding, mapping, latest());
}

void Scope::undo(size_t mark) {
    while (undoing.size() > mark) {
        auto &[binding, former] = undoing.back();
        unbind(*binding);
        binding->state = former;
        if (former.ns) {
            binding->state.all.putBack();
            if (binding->key) binding->state.prefixed.putBack();
        }
        undoing.pop_back();
    }
}

} // namespace xml
