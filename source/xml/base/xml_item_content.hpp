// What the items and lists of both layers do: they differ only in the type of their elements and in
// what makes them on demand.
#pragma once

#include "source/vo/vo_allocator.hpp"
#include "source/vo/vo_array.hpp"
#include "source/xml/base/xml_on_demand.hpp"
#include "xml/xml_item_type.h"

namespace xml {

/// The vector of a list, which is made if it is not; not a new reference.
template <class List> voVector *vectorOf(List *list) {
    voVector *made = list->itemsVector.made();
    return made ? made : list->make(false);
}

/// The node of an item, which is made if it is not; not a new reference.
template <class Item> voObj *nodeOf(Item *item) {
    voObj *made = item->value.made();
    return made ? made : item->make(false);
}

/// The vector of a private list, to be changed: converts to what changing functions take.
template <class List> class VectorEdit {
  public:
    explicit VectorEdit(List *own) : list(own), vector(vectorOf(own)) {}
    VectorEdit(const VectorEdit &) = delete;
    VectorEdit &operator=(const VectorEdit &) = delete;
    ~VectorEdit() { list->itemsVector.set(vector); }

    operator voVector **() { return &vector; }

  private:
    List *list;
    voVector *vector;
};

/// What an item knows without its node: the type, and while the node is pending the number of its
/// record in the outline and whether it is the last of those with the same parent there.
constexpr uint64_t itemTag(XML_ITEM_TYPE type, uint64_t number = 0, bool isLast = false) {
    return number << 4 | uint64_t{isLast} << 3 | uint64_t(type);
}
constexpr XML_ITEM_TYPE typeOf(uint64_t tag) { return XML_ITEM_TYPE(tag & 7); }
constexpr bool isLast(uint64_t tag) { return (tag & 8) != 0; }
constexpr uint64_t numberOf(uint64_t tag) { return tag >> 4; }

/// An item that holds `node`, which must be of the sort that `type` stands for.
template <class Item> Item *createItem(voSort *sort, XML_ITEM_TYPE type, voObj *node) {
    auto *item = vo::create<Item>(sort);
    item->tag = itemTag(type);
    item->value.set(vo::retained(node));
    return item;
}

/// The node of `item`, borrowed; null when the item is of another type. The caller sees to it that
/// `Node` is what `type` stands for.
template <class Node, class Item> Node *held(Item *item, XML_ITEM_TYPE type) {
    return item->type() == type ? reinterpret_cast<Node *>(nodeOf(item)) : nullptr;
}

/// Makes the caller's reference `made`, which it adopts.
template <class Item> void replace(Item **item, Item *made) {
    vo::release(std::exchange(*item, made));
}

/// Makes everything below a list. `Element` is the layer's; lists wait on a stack.
template <class Item, class Element, class List> void makeAll(List *list) {
    vo::Vec<List *> waiting{list};
    while (!waiting.empty()) {
        List *next = waiting.back();
        waiting.pop_back();
        if (!next->itemsVector.made()) (void)next->make(true);
        voVector *vector = vectorOf(next);
        for (int64_t i = 0; i < vector->length; ++i) {
            auto *item = reinterpret_cast<Item *>(vector->items()[i]);
            if (!item->value.made()) (void)item->make(true);
            if (item->type() == XML_ITEM_TYPE_ELEMENT)
                waiting.push_back(reinterpret_cast<Element *>(nodeOf(item))->items);
        }
    }
}

} // namespace xml
