// The fields of a document, for code that builds or reads it in place.
#pragma once

#include "source/xml/base/xml_on_demand.hpp"
#include "source/xml/base/xml_version.hpp"
#include "xml/xml_document.h"

namespace xml {

struct NsEncoding;

/// The items, which are made if they are not; not a new reference.
XML_ITEMS *itemsOf(XML_DOCUMENT *document);

} // namespace xml

struct XML_DOCUMENT {
    voObj base;
    xml::Version version;
    voCharset charset;
    int standalone; ///< 0 or 1.
    /// Pending only in a document that was made from a namespace document.
    xml::OnDemand<XML_ITEMS, xml::NsEncoding> items;
    voParserLocation *location; ///< Null when it was not recorded.

    auto fields() { return std::tie(version, charset, standalone, items, location); }
    XML_ITEMS *makeItems();
    void complete() {
        (void)version.get();
        (void)xml::itemsOf(this);
    }
};

inline XML_ITEMS *xml::itemsOf(XML_DOCUMENT *document) {
    XML_ITEMS *made = document->items.made();
    return made ? made : document->makeItems();
}
