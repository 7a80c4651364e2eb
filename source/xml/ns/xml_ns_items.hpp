// A namespace item list as the codecs see it.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_ns_items.h"

struct XML_NS_ITEMS {
    voObj base;
    voVector *itemsVector; ///< Of XML_NS_ITEM.

    auto fields() { return std::tie(itemsVector); }
};
