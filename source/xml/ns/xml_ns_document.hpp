// A namespace document as the codecs see it.
#pragma once

#include "source/vo/vo_object.hpp"
#include "xml/xml_ns_document.h"

struct XML_NS_DOCUMENT {
    voObj base;
    voString *version;
    voCharset charset;
    int standalone; ///< 0 or 1.
    XML_NS_ITEMS *items;
    voParserLocation *location; ///< Null when it was not recorded.

    auto fields() { return std::tie(version, charset, standalone, items, location); }
};
