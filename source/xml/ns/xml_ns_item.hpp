// A namespace item as the codecs see it.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_ns_item.h"

struct XML_NS_ITEM {
    voObj base;
    XML_ITEM_TYPE type;
    voObj *value; ///< The node; `type` says of which sort.

    auto fields() { return std::tie(type, value); }
};

extern "C" {
/// An item that holds the node `obj`, which must be of the sort that `type` stands for.
XML_NS_ITEM *xml___NsItemCreate(XML_ITEM_TYPE type, voObj *obj);
}
