// The objects of both layers as a cursor reads them.
#pragma once

#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_document.hpp"
#include "source/xml/base/xml_element.hpp"
#include "source/xml/base/xml_item.hpp"
#include "source/xml/base/xml_items.hpp"
#include "source/xml/base/xml_text.hpp"
#include "source/xml/ns/xml_ns_attribute.hpp"
#include "source/xml/ns/xml_ns_attributes.hpp"
#include "source/xml/ns/xml_ns_document.hpp"
#include "source/xml/ns/xml_ns_element.hpp"
#include "source/xml/ns/xml_ns_item.hpp"
#include "source/xml/ns/xml_ns_items.hpp"

namespace xml {

struct PlainLayer {
    using Document = XML_DOCUMENT;
    using Element = XML_ELEMENT;
    using Attribute = XML_ATTRIBUTE;
    using Item = XML_ITEM;

    /// The items of a document that was made from a namespace document are made here, since its
    /// prefixes are only known after a walk through all of it.
    static XML_ITEMS *items(Document *document) { return itemsOf(document); }
    static XML_ITEMS *items(Element *element) { return element->items; }
    template <class Named> static voString *name(Named *node) { return node->name; }
    template <class Named> static voString *ns(Named *) { return nullptr; }
};

struct NsLayer {
    using Document = XML_NS_DOCUMENT;
    using Element = XML_NS_ELEMENT;
    using Attribute = XML_NS_ATTRIBUTE;
    using Item = XML_NS_ITEM;

    template <class Node> static XML_NS_ITEMS *items(Node *node) { return node->items; }
    template <class Named> static voString *name(Named *node) { return node->localName; }
    template <class Named> static voString *ns(Named *node) { return node->ns; }
};

} // namespace xml
