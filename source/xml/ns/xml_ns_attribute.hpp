// The fields of a namespace attribute, for code that builds or reads it in place.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_ns_attribute.h"

struct XML_NS_ATTRIBUTE {
    voObj base;
    voString *localName;
    voString *ns; ///< Null when the attribute is in no namespace.
    XML_TEXT *text;
    voParserLocation *location; ///< Null when it was not recorded.

    auto fields() { return std::tie(localName, ns, text, location); }
};
