// The trees of both layers under common names, for tests that are written once for both, and trees
// written as text.
#pragma once

#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_item.hpp"
#include "source/xml/ns/xml_ns_attributes.hpp"
#include "source/xml/ns/xml_ns_item.hpp"
#include "tests/support.hpp"
#include "xml/xml.h"

#include <sstream>

namespace test {

inline Ref<voString> localName(const std::string &name) {
    return str(name.substr(name.find(':') + 1));
}
inline Ref<voString> namespaceName(const std::string &name) {
    size_t colon = name.find(':');
    return colon == std::string::npos ? Ref<voString>() : str(name.substr(0, colon));
}
inline std::string expandedName(voString *ns, voString *localName) {
    std::string prefix = ns ? take(ns) + ":" : "";
    return prefix + take(localName);
}

inline Ref<XML_TEXT> textNode(std::string_view value) {
    return Ref(xmlTextCreateValue(str(value)));
}
inline Ref<XML_CDATA> cdata(std::string_view value) { return Ref(xmlCdataCreate(str(value))); }
inline Ref<XML_COMMENT> comment(std::string_view value) {
    return Ref(xmlCommentCreate(str(value)));
}
inline Ref<XML_PROCESSING_INSTRUCTION> instruction(std::string_view value) {
    return Ref(xmlProcessingInstructionCreate(str(value)));
}

inline std::string describe(voString *string) { return text(string); }
inline std::string describe(XML_TEXT *text) { return take(xmlTextValue(text)); }
inline std::string describe(XML_CDATA *cdata) { return "[" + take(xmlCdataValue(cdata)) + "]"; }
inline std::string describe(XML_COMMENT *comment) { return "!" + take(xmlCommentValue(comment)); }
inline std::string describe(XML_PROCESSING_INSTRUCTION *pi) {
    return "?" + take(xmlProcessingInstructionValue(pi));
}

#define LAYER_TEXT "tests/xml/layer.inc"
#include "tests/xml/both_layers.inc"

/// What a function returned: a number, or a new reference, which is released.
inline std::string taken(int64_t number) { return std::to_string(number); }
template <class T> std::string taken(T *reference) {
    Ref owned(reference);
    return owned ? describe(owned.operator->()) : "<null>";
}

} // namespace test

/// A test suite that runs for both layers.
#define LAYER_TEST_SUITE(Suite)                                                                    \
    template <class Layer> class Suite : public testing::Test {};                                  \
    using Suite##Layers = testing::Types<test::Plain, test::Namespaced>;                           \
    TYPED_TEST_SUITE(Suite, Suite##Layers)
