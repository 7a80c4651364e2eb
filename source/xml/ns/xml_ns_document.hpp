// The fields of a namespace document, for code that builds or reads it in place.
#pragma once

#include "source/xml/base/xml_version.hpp"
#include "xml/xml_ns_document.h"

struct XML_NS_DOCUMENT {
    voObj base;
    xml::Version version;
    voCharset charset;
    int standalone; ///< 0 or 1.
    XML_NS_ITEMS *items;
    voParserLocation *location; ///< Null when it was not recorded.

    auto fields() { return std::tie(version, charset, standalone, items, location); }
    void complete() { (void)version.get(); }
};
