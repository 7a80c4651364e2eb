// An item as the codecs see it.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_item.h"

struct XML_ITEM {
    voObj base;
    XML_ITEM_TYPE type;
    voObj *value; ///< The node; `type` says of which sort.

    auto fields() { return std::tie(type, value); }
};

extern "C" {
/// An item that holds the node `obj`, which must be of the sort that `type` stands for.
XML_ITEM *xml___ItemCreate(XML_ITEM_TYPE type, voObj *obj);
}
