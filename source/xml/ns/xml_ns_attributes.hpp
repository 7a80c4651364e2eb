// The fields of a namespace attribute list, for code that builds or reads it in place.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_ns_attributes.h"

struct XML_NS_ATTRIBUTES {
    voObj base;
    voVector *vector; ///< Of XML_NS_ATTRIBUTE; no two have one name.

    auto fields() { return std::tie(vector); }
};

extern "C" {
/// Removes the other attribute that has the name of the one at `index`, if there is one. Returns
/// where the attribute from `index` stands then.
int64_t xml___NsAttributesDeleteDuplicate(XML_NS_ATTRIBUTES **attrs, int64_t index);
}
