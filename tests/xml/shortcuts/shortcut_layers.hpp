// The short ways of both layers under common names.
#pragma once

#include "source/vo/vo_live.hpp"
#include "tests/xml/codec.hpp"
#include "tests/xml/layers.hpp"

namespace test {

struct PlainShort : Plain {
    static constexpr auto root = xmlDocumentRoot;
    static constexpr auto child = xmlElementChild;
    static constexpr auto findChild = xmlElementFindChild;
    static constexpr auto content = xmlElementTryContent;
    static constexpr auto contentUtf8 = xmlElementTryContentUtf8;
    static constexpr auto attributeUtf8 = xmlElementAttributeTryUtf8;
    static constexpr auto encodeElement = xmlElementTryEncode;
    static constexpr auto takeAt = xmlElementTakeItemElementAt;
    static constexpr auto takeFromItems = xmlItemsTakeItemElementAt;
    static constexpr auto takeRoot = xmlDocumentTakeRoot;
    static constexpr auto setRoot = xmlDocumentSetRoot;
    static constexpr auto makeAll = xmlDocumentMakeAll;

    static Ref<Document> of(Ref<XML_DOCUMENT> plain) { return plain; }
    static std::string encode(Document *document) {
        return test::encode(document, XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
    }
};

struct NamespacedShort : Namespaced {
    static constexpr auto root = xmlNsDocumentRoot;
    static XML_NS_ELEMENT *child(XML_NS_ELEMENT *el, const char *name) {
        return xmlNsElementChild(el, name, nullptr);
    }
    static int64_t findChild(XML_NS_ELEMENT *el, int64_t from, const char *name) {
        return xmlNsElementFindChild(el, from, name, nullptr);
    }
    static constexpr auto content = xmlNsElementTryContent;
    static constexpr auto contentUtf8 = xmlNsElementTryContentUtf8;
    static char *attributeUtf8(XML_NS_ELEMENT *el, const char *name, int64_t *optionalLength) {
        return xmlNsElementAttributeTryUtf8(el, name, nullptr, optionalLength);
    }
    static constexpr auto encodeElement = xmlNsElementTryEncode;
    static constexpr auto takeAt = xmlNsElementTakeItemElementAt;
    static constexpr auto takeFromItems = xmlNsItemsTakeItemElementAt;
    static constexpr auto takeRoot = xmlNsDocumentTakeRoot;
    static constexpr auto setRoot = xmlNsDocumentSetRoot;
    static constexpr auto makeAll = xmlNsDocumentMakeAll;

    static Ref<Document> of(Ref<XML_DOCUMENT> plain) { return nsDecode(plain).document; }
    static std::string encode(Document *document) {
        Ref plain(xmlNsDocumentEncode(document));
        return PlainShort::encode(plain);
    }
};

/// A document without its declaration.
template <class Layer> Ref<typename Layer::Document> documentOf(const std::string &items) {
    return Layer::of(decode("<?xml version='1.0'?>" + items).document);
}

} // namespace test

/// A test suite that runs for both layers.
#define SHORTCUT_TEST_SUITE(Suite)                                                                 \
    template <class Layer> class Suite : public testing::Test {};                                  \
    using Suite##Layers = testing::Types<test::PlainShort, test::NamespacedShort>;                 \
    TYPED_TEST_SUITE(Suite, Suite##Layers)
