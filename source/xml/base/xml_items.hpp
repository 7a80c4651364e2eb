// The fields of an item list, for code that builds or reads it in place.
#pragma once

#include "source/xml/base/xml_item_content.hpp"
#include "source/xml/outline/xml_outline.hpp"
#include "xml/xml_items.h"

struct XML_ITEMS {
    voObj base;
    xml::OnDemand<voVector, xml::Outline> itemsVector; ///< Of XML_ITEM.
    /// While the vector is pending: the number of the element that has the items. Else not set.
    uint64_t element;

    auto fields() { return std::tie(itemsVector); }
    voVector *make(bool whole);
    void complete() { (void)xml::vectorOf(this); }
};
