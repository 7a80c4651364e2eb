// Makes the objects of a namespace tree beside those of the plain tree.
#pragma once

#include "source/xml/base/xml_element.hpp"
#include "source/xml/base/xml_hash_table.hpp"
#include "source/xml/ns/xml_ns_conversion.hpp"
#include "source/xml/ns/xml_ns_element.hpp"
#include "source/xml/ns/xml_ns_item.hpp"
#include "source/xml/ns/xml_ns_items.hpp"
#include "source/xml/ns/xml_ns_outline.hpp"

namespace xml {

/// The only place where decoding creates objects of the namespace layer. Objects lie in chunks. For
/// one thread at a time.
class NsFactory {
  public:
    explicit NsFactory(NsShared &common) : shared(common) {}

    /// An element that still lacks its items. `numbers` tell its namespace and those of its
    /// attributes.
    XML_NS_ELEMENT *element(XML_ELEMENT *plain, const NsNumber *numbers);

    /// An item for a node, which it adopts.
    XML_NS_ITEM *item(XML_ITEM_TYPE type, voObj *node);

    /// An item whose node, a record of that number, is left to be made on demand; adopts the
    /// outline.
    XML_NS_ITEM *pendingItem(XML_ITEM *plain, uint64_t number, NsOutline *outline);

    /// A list with room for `length` items, which the caller pushes to its vector; for none, a list
    /// that is shared.
    XML_NS_ITEMS *list(int64_t length);

    VectorPlacer place;

  private:
    XML_NS_ATTRIBUTES *attributes(voVector *plain, const NsNumber *numbers);
    XML_NS_NAMESPACE_MAP *namespaceMap(voVector *plain, const NsNumber *numbers);
    voString *localName(voString *whole);
    voString *ns(NsNumber number) { return vo::retained<voString>(shared.namespaces[number]); }

    /// Looked up once, since getting a sort is a call into a library.
    struct Sorts {
        voSort *item = xmlNsItemSort(), *items = xmlNsItemsSort(), *element = xmlNsElementSort(),
               *attribute = xmlNsAttributeSort(), *attributes = xmlNsAttributesSort(),
               *map = xmlNsNamespaceMapSort(), *mapping = xmlNsNamespaceMappingSort();
    };

    /// A name of the plain tree, identified by its address, and its local name.
    struct Known {
        vo::Ref<voString> whole, local;
    };

    NsShared &shared;
    Sorts sorts;
    vo::Ref<XML_NS_ATTRIBUTES> noAttributes; ///< Null until they are needed.
    vo::Ref<XML_NS_ITEMS> noItems;
    HashTable<Known> known;
    Recent<Known *> recent;
};

/// The list for the items of an element of the outline, or of the document. The items are left to
/// be made on demand; adopts the outline.
XML_NS_ITEMS *createPendingItems(XML_ITEMS *plain, uint64_t element, NsOutline *outline);

} // namespace xml
