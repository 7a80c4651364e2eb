// Walking a tree of any depth.
#pragma once

#include "layers.hpp"

#include <vector>

namespace tool {

/// Visits the items of a list and all below them in document order. `visitor.node(node, depth)` is
/// called for every node, with the depth of the list being 1. The open elements are kept on a stack
/// of its own, so that the depth of a document costs memory only.
template <class Layer, class Visitor>
void walk(Ref<typename Layer::Items> items, Visitor &visitor) {
    struct Open {
        Ref<typename Layer::Items> items;
        int64_t next;
    };
    std::vector<Open> stack;
    stack.push_back({std::move(items), 0});
    while (!stack.empty()) {
        Open &open = stack.back();
        if (open.next == Layer::length(open.items)) {
            stack.pop_back();
            continue;
        }
        const int64_t index = open.next++;
        const size_t depth = stack.size();
        switch (Layer::typeAt(open.items, index)) {
        case XML_ITEM_TYPE_PROCESSING_INSTRUCTION:
            visitor.node(Ref(Layer::instructionAt(open.items, index)), depth);
            break;
        case XML_ITEM_TYPE_COMMENT:
            visitor.node(Ref(Layer::commentAt(open.items, index)), depth);
            break;
        case XML_ITEM_TYPE_TEXT:
            visitor.node(Ref(Layer::textAt(open.items, index)), depth);
            break;
        case XML_ITEM_TYPE_CDATA:
            visitor.node(Ref(Layer::cdataAt(open.items, index)), depth);
            break;
        default:
            Ref element(Layer::elementAt(open.items, index));
            visitor.node(element, depth);
            stack.push_back({Ref(Layer::elementItems(element)), 0});
        }
    }
}

} // namespace tool
