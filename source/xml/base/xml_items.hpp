// An item list as the codecs see it.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_items.h"

struct XML_ITEMS {
    voObj base;
    voVector *itemsVector; ///< Of XML_ITEM.

    auto fields() { return std::tie(itemsVector); }
};
