// The fields of a namespace mapping, for code that builds or reads it in place.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_ns_namespace_mapping.h"

struct XML_NS_NAMESPACE_MAPPING {
    voObj base;
    voString *prefix; ///< Null: for the default namespace.
    voString *ns;     ///< Null: bound to no namespace.

    auto fields() { return std::tie(prefix, ns); }
};
