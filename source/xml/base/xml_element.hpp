// The fields of an element, for code that builds or reads it in place.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_element.h"

struct XML_ELEMENT {
    voObj base;
    voString *name;
    XML_ATTRIBUTES *attributes;
    XML_ITEMS *items;
    voParserLocation *location; ///< Null when it was not recorded.

    auto fields() { return std::tie(name, attributes, items, location); }
};
