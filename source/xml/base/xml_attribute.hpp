// The fields of an attribute, for code that builds or reads it in place.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_attribute.h"

struct XML_ATTRIBUTE {
    voObj base;
    voString *name;
    XML_TEXT *text;
    voParserLocation *location; ///< Null when it was not recorded.

    auto fields() { return std::tie(name, text, location); }
};
