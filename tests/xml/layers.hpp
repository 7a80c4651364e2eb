// The trees of both layers under common names, for tests that are written once for both. A name is
// written "a", or "u:a" for a in the namespace u; for the plain layer that is a name with a colon.
#pragma once

#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_item.hpp"
#include "source/xml/ns/xml_ns_attributes.hpp"
#include "source/xml/ns/xml_ns_item.hpp"
#include "tests/support.hpp"
#include "xml/xml.h"

namespace test {

/// The two parts of a name with a namespace: a namespace may have colons, a local name has none.
struct ExpandedName {
    explicit ExpandedName(std::string_view name);
    Ref<voString> local, ns;
};
/// Such a name as it is written. Takes over both references.
std::string expandedName(voString *optionalNs, voString *localName);

Ref<XML_TEXT> textNode(std::string_view value);
Ref<XML_CDATA> cdata(std::string_view value);
Ref<XML_COMMENT> comment(std::string_view value);
Ref<XML_PROCESSING_INSTRUCTION> instruction(std::string_view value);

struct Plain {
    using Attribute = XML_ATTRIBUTE;
    using Attributes = XML_ATTRIBUTES;
    using Item = XML_ITEM;
    using Items = XML_ITEMS;
    using Element = XML_ELEMENT;
    using Document = XML_DOCUMENT;

    /// The path of a unit as abort texts show it.
    static std::string file(const std::string &unit) {
        return "source/xml/base/xml_" + unit + ".cpp";
    }

    static Ref<Attribute> attribute(std::string_view name, std::string_view value) {
        return Ref(xmlAttributeCreateTextValue(str(name), str(value)));
    }
    static Ref<Attribute> find(Attributes *attrs, std::string_view name) {
        return Ref(xmlAttributesAttribute(attrs, str(name)));
    }
    static void delAttribute(Attributes **attrs, std::string_view name) {
        xmlAttributesDelAttribute(attrs, str(name));
    }
    static void delElementAttribute(Element **el, std::string_view name) {
        xmlElementDelAttribute(el, str(name));
    }
    static Ref<Element> element(std::string_view name) { return Ref(xmlElementCreate(str(name))); }
    static void renameElement(Element **el, std::string_view name) {
        xmlElementSetName(el, str(name));
    }
    static std::string nameOf(Attribute *attr) { return take(xmlAttributeName(attr)); }
    static std::string nameOf(Element *el) { return take(xmlElementName(el)); }

    static constexpr auto attributeSort = xmlAttributeSort;
    static constexpr auto attributeObj = xmlAttributeObj;
    static constexpr auto attributeText = xmlAttributeText;
    static constexpr auto attributeLocation = xmlAttributeLocation;
    static constexpr auto attributeValue = xmlAttributeTextValue;
    static constexpr auto copyAttribute = xmlAttributeCreateFrom;
    static constexpr auto setText = xmlAttributeSetText;
    static constexpr auto setTextValue = xmlAttributeSetTextValue;
    static constexpr auto setTextEscape = xmlAttributeSetTextEscape;
    static constexpr auto tryUnescape = xmlAttributeTextTryUnescape;

    static constexpr auto deleteDuplicate = xml___AttributesDeleteDuplicate;
    static constexpr auto attributesSort = xmlAttributesSort;
    static constexpr auto attributesLength = xmlAttributesLength;
    static constexpr auto attributesVector = xmlAttributesVector;
    static constexpr auto setAttributesVector = xmlAttributesSetVector;
    static constexpr auto createAttributes = xmlAttributesCreate;
    static constexpr auto insertAttributes = xmlAttributesInsert;
    static constexpr auto appendAttributes = xmlAttributesAppend;
    static constexpr auto attributeAt = xmlAttributesAttributeAt;
    static constexpr auto setAttributeAt = xmlAttributesSetAttributeAt;
    static constexpr auto delAttributeAt = xmlAttributesDelAttributeAt;
    static constexpr auto insertAttribute = xmlAttributesInsertAttribute;
    static constexpr auto appendAttribute = xmlAttributesAppendAttribute;
    static constexpr auto setAttribute = xmlAttributesSetAttribute;

    static constexpr auto itemSort = xmlItemSort;
    static constexpr auto createItem = xml___ItemCreate;
    static constexpr auto createItemElement = xmlItemCreateElement;
    static constexpr auto createItemInstruction = xmlItemCreateProcessingInstruction;
    static constexpr auto createItemComment = xmlItemCreateComment;
    static constexpr auto createItemText = xmlItemCreateText;
    static constexpr auto createItemCdata = xmlItemCreateCdata;
    static constexpr auto setItemElement = xmlItemSetElement;
    static constexpr auto itemText = xmlItemText;
    static constexpr auto itemType = xmlItemType;
    static constexpr auto itemElement = xmlItemElement;
    static constexpr auto itemInstruction = xmlItemProcessingInstruction;
    static constexpr auto itemComment = xmlItemComment;
    static constexpr auto itemCdata = xmlItemCdata;
    static constexpr auto setItemComment = xmlItemSetComment;
    static constexpr auto itemsSort = xmlItemsSort;
    static constexpr auto itemsLength = xmlItemsLength;
    static constexpr auto clearItems = xmlItemsClear;
    static constexpr auto createItems = xmlItemsCreate;
    static constexpr auto copyItems = xmlItemsCreateFrom;
    static constexpr auto itemsVector = xmlItemsItemsVector;
    static constexpr auto setItemsVector = xmlItemsSetItemsVector;
    static constexpr auto insertItems = xmlItemsInsert;
    static constexpr auto appendItems = xmlItemsAppend;
    static constexpr auto itemAt = xmlItemsItemAt;
    static constexpr auto setItemAt = xmlItemsSetItemAt;
    static constexpr auto delItemAt = xmlItemsDelItemAt;
    static constexpr auto elementAt = xmlItemsItemElementAt;
    static constexpr auto setElementInItems = xmlItemsSetItemElementAt;
    static constexpr auto insertItemElement = xmlItemsInsertItemElement;
    static constexpr auto appendItemText = xmlItemsAppendItemText;
    static constexpr auto appendItem = xmlItemsAppendItem;
    static constexpr auto appendItemComment = xmlItemsAppendItemComment;
    static constexpr auto appendItemElement = xmlItemsAppendItemElement;

    static constexpr auto elementSort = xmlElementSort;
    static constexpr auto elementLength = xmlElementItemsLength;
    static constexpr auto delElementLocation = xmlElementDelLocation;
    static constexpr auto elementLocation = xmlElementLocation;
    static constexpr auto copyElement = xmlElementCreateFrom;
    static constexpr auto elementAttributes = xmlElementAttributes;
    static constexpr auto setElementAttributes = xmlElementSetAttributes;
    static constexpr auto elementItems = xmlElementItems;
    static constexpr auto setElementItems = xmlElementSetItems;
    static constexpr auto appendElement = xmlElementAppendItemElement;
    static constexpr auto setElementAt = xmlElementSetItemElementAt;
    static constexpr auto insertElement = xmlElementInsertItemElement;
    static constexpr auto prependElement = xmlElementPrependItemElement;
    static constexpr auto appendElementItem = xmlElementAppendItem;
    static constexpr auto appendElementComment = xmlElementAppendItemComment;
    static constexpr auto elementItemAt = xmlElementItemElementAt;
    static constexpr auto insertElementItems = xmlElementInsertItems;
    static constexpr auto delElementItemAt = xmlElementDelItemAt;
    static constexpr auto clearElementItems = xmlElementItemsClear;
    static constexpr auto setElementAttribute = xmlElementSetAttribute;
    static constexpr auto insertElementAttribute = xmlElementInsertAttribute;

    static constexpr auto documentSort = xmlDocumentSort;
    static constexpr auto createDocument = xmlDocumentCreate;
    static constexpr auto copyDocument = xmlDocumentCreateFrom;
    static constexpr auto version = xmlDocumentVersion;
    static constexpr auto documentLocation = xmlDocumentLocation;
    static constexpr auto setVersion = xmlDocumentSetVersion;
    static constexpr auto charset = xmlDocumentCharset;
    static constexpr auto setCharset = xmlDocumentSetCharset;
    static constexpr auto standalone = xmlDocumentStandalone;
    static constexpr auto setStandalone = xmlDocumentSetStandalone;
    static constexpr auto documentItems = xmlDocumentItems;
    static constexpr auto setDocumentItems = xmlDocumentSetItems;
    static constexpr auto hasLocation = xmlDocumentHasLocation;
};

struct Namespaced {
    using Attribute = XML_NS_ATTRIBUTE;
    using Attributes = XML_NS_ATTRIBUTES;
    using Item = XML_NS_ITEM;
    using Items = XML_NS_ITEMS;
    using Element = XML_NS_ELEMENT;
    using Document = XML_NS_DOCUMENT;

    static std::string file(const std::string &unit) {
        return "source/xml/ns/xml_ns_" + unit + ".cpp";
    }

    static Ref<Attribute> attribute(std::string_view name, std::string_view value) {
        const ExpandedName parts(name);
        return Ref(xmlNsAttributeCreateTextValue(parts.local, parts.ns, str(value)));
    }
    static Ref<Attribute> find(Attributes *attrs, std::string_view name) {
        const ExpandedName parts(name);
        return Ref(xmlNsAttributesAttribute(attrs, parts.local, parts.ns));
    }
    static void delAttribute(Attributes **attrs, std::string_view name) {
        const ExpandedName parts(name);
        xmlNsAttributesDelAttribute(attrs, parts.local, parts.ns);
    }
    static void delElementAttribute(Element **el, std::string_view name) {
        const ExpandedName parts(name);
        xmlNsElementDelAttribute(el, parts.local, parts.ns);
    }
    static Ref<Element> element(std::string_view name) {
        const ExpandedName parts(name);
        return Ref(xmlNsElementCreate(parts.local, parts.ns));
    }
    static void renameElement(Element **el, std::string_view name) {
        const ExpandedName parts(name);
        xmlNsElementSetName(el, parts.local, parts.ns);
    }
    static std::string nameOf(Attribute *attr) {
        return expandedName(xmlNsAttributeNamespace(attr), xmlNsAttributeLocalName(attr));
    }
    static std::string nameOf(Element *el) {
        return expandedName(xmlNsElementNamespace(el), xmlNsElementLocalName(el));
    }

    static constexpr auto attributeSort = xmlNsAttributeSort;
    static constexpr auto attributeObj = xmlNsAttributeObj;
    static constexpr auto attributeText = xmlNsAttributeText;
    static constexpr auto attributeLocation = xmlNsAttributeLocation;
    static constexpr auto attributeValue = xmlNsAttributeTextValue;
    static constexpr auto copyAttribute = xmlNsAttributeCreateFrom;
    static constexpr auto setText = xmlNsAttributeSetText;
    static constexpr auto setTextValue = xmlNsAttributeSetTextValue;
    static constexpr auto setTextEscape = xmlNsAttributeSetTextEscape;
    static constexpr auto tryUnescape = xmlNsAttributeTextTryUnescape;

    static constexpr auto deleteDuplicate = xml___NsAttributesDeleteDuplicate;
    static constexpr auto attributesSort = xmlNsAttributesSort;
    static constexpr auto attributesLength = xmlNsAttributesLength;
    static constexpr auto attributesVector = xmlNsAttributesVector;
    static constexpr auto setAttributesVector = xmlNsAttributesSetVector;
    static constexpr auto createAttributes = xmlNsAttributesCreate;
    static constexpr auto insertAttributes = xmlNsAttributesInsert;
    static constexpr auto appendAttributes = xmlNsAttributesAppend;
    static constexpr auto attributeAt = xmlNsAttributesAttributeAt;
    static constexpr auto setAttributeAt = xmlNsAttributesSetAttributeAt;
    static constexpr auto delAttributeAt = xmlNsAttributesDelAttributeAt;
    static constexpr auto insertAttribute = xmlNsAttributesInsertAttribute;
    static constexpr auto appendAttribute = xmlNsAttributesAppendAttribute;
    static constexpr auto setAttribute = xmlNsAttributesSetAttribute;

    static constexpr auto itemSort = xmlNsItemSort;
    static constexpr auto createItem = xml___NsItemCreate;
    static constexpr auto createItemElement = xmlNsItemCreateElement;
    static constexpr auto createItemInstruction = xmlNsItemCreateProcessingInstruction;
    static constexpr auto createItemComment = xmlNsItemCreateComment;
    static constexpr auto createItemText = xmlNsItemCreateText;
    static constexpr auto createItemCdata = xmlNsItemCreateCdata;
    static constexpr auto setItemElement = xmlNsItemSetElement;
    static constexpr auto itemText = xmlNsItemText;
    static constexpr auto itemType = xmlNsItemType;
    static constexpr auto itemElement = xmlNsItemElement;
    static constexpr auto itemInstruction = xmlNsItemProcessingInstruction;
    static constexpr auto itemComment = xmlNsItemComment;
    static constexpr auto itemCdata = xmlNsItemCdata;
    static constexpr auto setItemComment = xmlNsItemSetComment;
    static constexpr auto itemsSort = xmlNsItemsSort;
    static constexpr auto itemsLength = xmlNsItemsLength;
    static constexpr auto clearItems = xmlNsItemsClear;
    static constexpr auto createItems = xmlNsItemsCreate;
    static constexpr auto copyItems = xmlNsItemsCreateFrom;
    static constexpr auto itemsVector = xmlNsItemsItemsVector;
    static constexpr auto setItemsVector = xmlNsItemsSetItemsVector;
    static constexpr auto insertItems = xmlNsItemsInsert;
    static constexpr auto appendItems = xmlNsItemsAppend;
    static constexpr auto itemAt = xmlNsItemsItemAt;
    static constexpr auto setItemAt = xmlNsItemsSetItemAt;
    static constexpr auto delItemAt = xmlNsItemsDelItemAt;
    static constexpr auto elementAt = xmlNsItemsItemElementAt;
    static constexpr auto setElementInItems = xmlNsItemsSetItemElementAt;
    static constexpr auto insertItemElement = xmlNsItemsInsertItemElement;
    static constexpr auto appendItemText = xmlNsItemsAppendItemText;
    static constexpr auto appendItem = xmlNsItemsAppendItem;
    static constexpr auto appendItemComment = xmlNsItemsAppendItemComment;
    static constexpr auto appendItemElement = xmlNsItemsAppendItemElement;

    static constexpr auto elementSort = xmlNsElementSort;
    static constexpr auto elementLength = xmlNsElementItemsLength;
    static constexpr auto delElementLocation = xmlNsElementDelLocation;
    static constexpr auto elementLocation = xmlNsElementLocation;
    static constexpr auto copyElement = xmlNsElementCreateFrom;
    static constexpr auto elementAttributes = xmlNsElementAttributes;
    static constexpr auto setElementAttributes = xmlNsElementSetAttributes;
    static constexpr auto elementItems = xmlNsElementItems;
    static constexpr auto setElementItems = xmlNsElementSetItems;
    static constexpr auto appendElement = xmlNsElementAppendItemElement;
    static constexpr auto setElementAt = xmlNsElementSetItemElementAt;
    static constexpr auto insertElement = xmlNsElementInsertItemElement;
    static constexpr auto prependElement = xmlNsElementPrependItemElement;
    static constexpr auto appendElementItem = xmlNsElementAppendItem;
    static constexpr auto appendElementComment = xmlNsElementAppendItemComment;
    static constexpr auto elementItemAt = xmlNsElementItemElementAt;
    static constexpr auto insertElementItems = xmlNsElementInsertItems;
    static constexpr auto delElementItemAt = xmlNsElementDelItemAt;
    static constexpr auto clearElementItems = xmlNsElementItemsClear;
    static constexpr auto setElementAttribute = xmlNsElementSetAttribute;
    static constexpr auto insertElementAttribute = xmlNsElementInsertAttribute;

    static constexpr auto documentSort = xmlNsDocumentSort;
    static constexpr auto createDocument = xmlNsDocumentCreate;
    static constexpr auto copyDocument = xmlNsDocumentCreateFrom;
    static constexpr auto version = xmlNsDocumentVersion;
    static constexpr auto documentLocation = xmlNsDocumentLocation;
    static constexpr auto setVersion = xmlNsDocumentSetVersion;
    static constexpr auto charset = xmlNsDocumentCharset;
    static constexpr auto setCharset = xmlNsDocumentSetCharset;
    static constexpr auto standalone = xmlNsDocumentStandalone;
    static constexpr auto setStandalone = xmlNsDocumentSetStandalone;
    static constexpr auto documentItems = xmlNsDocumentItems;
    static constexpr auto setDocumentItems = xmlNsDocumentSetItems;
    static constexpr auto hasLocation = xmlNsDocumentHasLocation;
};

} // namespace test

/// A test suite that runs for both layers.
#define LAYER_TEST_SUITE(Suite)                                                                    \
    template <class Layer> class Suite : public testing::Test {};                                  \
    using Suite##Layers = testing::Types<test::Plain, test::Namespaced>;                           \
    TYPED_TEST_SUITE(Suite, Suite##Layers)
