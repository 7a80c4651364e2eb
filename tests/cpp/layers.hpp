// The types of both trees under common names, for tests that are written once for both.
#pragma once

#include "tests/support.hpp"
#include "voxml.hpp"

namespace test {

struct Plain {
    using document = voxml::document;
    using element = voxml::element;
    using item = voxml::item;
    using attr = voxml::attr;
};

struct Namespaced {
    using document = voxml::ns::document;
    using element = voxml::ns::element;
    using item = voxml::ns::item;
    using attr = voxml::ns::attr;
};

inline const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

/// An element or a document as XML, the declaration left out.
template <class Node> std::string xml(const Node &node) {
    std::string text(node.encode().value().view());
    return text.substr(0, declaration.size()) == declaration ? text.substr(declaration.size())
                                                             : text;
}

template <class Layer> typename Layer::document decoded(const std::string &text) {
    return Layer::document::decode(declaration + text).value();
}

} // namespace test

/// A test suite that runs for both trees.
#define LAYER_TEST_SUITE(Suite)                                                                    \
    template <class Layer> class Suite : public testing::Test {};                                  \
    using Suite##Layers = testing::Types<test::Plain, test::Namespaced>;                           \
    TYPED_TEST_SUITE(Suite, Suite##Layers)
