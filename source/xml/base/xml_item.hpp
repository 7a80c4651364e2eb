// The fields of an item, for code that builds or reads it in place.
#pragma once

#include "source/xml/base/xml_item_content.hpp"
#include "source/xml/outline/xml_outline.hpp"
#include "xml/xml_item.h"

struct XML_ITEM {
    voObj base;
    uint64_t tag;                             ///< See itemTag().
    xml::OnDemand<voObj, xml::Outline> value; ///< The node; the type says of which sort.

    auto fields() { return std::tie(tag, value); }
    XML_ITEM_TYPE type() const { return xml::typeOf(tag); }
    uint64_t number() const { return xml::numberOf(tag); }
    bool isLast() const { return xml::isLast(tag); }
    voObj *make(bool whole);
    void complete() { (void)xml::nodeOf(this); }
};

extern "C" {
/// An item that holds the node `obj`, which must be of the sort that `type` stands for.
XML_ITEM *xml___ItemCreate(XML_ITEM_TYPE type, voObj *obj);
}
