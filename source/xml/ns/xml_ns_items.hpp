// The fields of a namespace item list, for code that builds or reads it in place.
#pragma once

#include "source/xml/base/xml_items.hpp"
#include "source/xml/ns/xml_ns_outline.hpp"
#include "xml/xml_ns_items.h"

struct XML_NS_ITEMS {
    voObj base;
    xml::OnDemand<voVector, xml::NsOutline> itemsVector; ///< Of XML_NS_ITEM.
    XML_ITEMS *plain; ///< While the vector is pending: the list of the plain tree. Else null.
    uint64_t element; ///< Likewise: the number of the element that has the items.

    auto fields() { return std::tie(itemsVector, plain); }
    voVector *make(bool whole);
    void complete() { (void)xml::vectorOf(this); }
};
