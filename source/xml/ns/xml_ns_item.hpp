// The fields of a namespace item, for code that builds or reads it in place.
#pragma once

#include "source/xml/base/xml_item.hpp"
#include "source/xml/ns/xml_ns_outline.hpp"
#include "xml/xml_ns_item.h"

struct XML_NS_ITEM {
    voObj base;
    uint64_t tag;                               ///< As that of XML_ITEM.
    xml::OnDemand<voObj, xml::NsOutline> value; ///< The node; the type says of which sort.
    XML_ITEM *plain; ///< While the node is pending: the item of the plain tree. Else null.

    auto fields() { return std::tie(tag, value, plain); }
    XML_ITEM_TYPE type() const { return xml::typeOf(tag); }
    uint64_t number() const { return xml::numberOf(tag); }
    voObj *make(bool whole);
    void complete() { (void)xml::nodeOf(this); }
};

extern "C" {
/// An item that holds the node `obj`, which must be of the sort that `type` stands for.
XML_NS_ITEM *xml___NsItemCreate(XML_ITEM_TYPE type, voObj *obj);
}
