// Items of a plain document that are still those of a namespace document.
#pragma once

#include "source/xml/base/xml_writer.hpp"
#include "xml/xml_items.h"
#include "xml/xml_ns_items.h"
#include "xml/xml_ns_namespace_map.h"

namespace xml {

/// What the items of an encoded document will be made from, or written from without being made. It
/// never changes.
struct NsEncoding {
    voObj base;
    XML_NS_ITEMS *items;
    XML_NS_NAMESPACE_MAP *optionalAround; ///< What is bound around the document.
    XML_NS_NAMESPACE_MAP *optionalRoot;   ///< What elements at the top declare.

    auto fields() { return std::tie(items, optionalAround, optionalRoot); }
};

/// The items, a new reference. Each call makes them anew.
XML_ITEMS *makeItems(NsEncoding *encoding);

/// Writes them in the canonical layout.
void writeItems(NsEncoding *encoding, Writer &out);

} // namespace xml
