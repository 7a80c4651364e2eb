// What the items of both layers do: they differ only in the type of their elements.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_item_type.h"

namespace xml {

/// An item that holds `node`, which must be of the sort that `type` stands for.
template <class Item> Item *createItem(voSort *sort, XML_ITEM_TYPE type, voObj *node) {
    auto *item = vo::create<Item>(sort);
    item->type = type;
    item->value = vo::retained(node);
    return item;
}

/// The node of `item`, borrowed; null when the item is of another type. The caller sees to it that
/// `Node` is what `type` stands for.
template <class Node, class Item> Node *held(Item *item, XML_ITEM_TYPE type) {
    return item->type == type ? reinterpret_cast<Node *>(item->value) : nullptr;
}

/// Makes the caller's reference `made`, which it adopts.
template <class Item> void replace(Item **item, Item *made) {
    vo::release(std::exchange(*item, made));
}

} // namespace xml
