// The fields of a namespace element, for code that builds or reads it in place.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_ns_element.h"

struct XML_NS_ELEMENT {
    voObj base;
    voString *localName;
    voString *ns; ///< Null when the element is in no namespace.
    XML_NS_ATTRIBUTES *attributes;
    XML_NS_ITEMS *items;
    XML_NS_NAMESPACE_MAP *namespaceMap; ///< Null when the element declares nothing.
    voParserLocation *location;         ///< Null when it was not recorded.

    auto fields() { return std::tie(localName, ns, attributes, items, namespaceMap, location); }
};
