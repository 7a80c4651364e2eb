// Trees of both layers written as text, and read from it:
//
//     (u:a +p=u +=v @u:c=1 @d=2 'text' !comment ?pi #cdata (b))
//
// An element in parentheses holds its name, its namespace map, its attributes and its items; lists
// alone are written as they stand there. A text is put between apostrophes, and so is any other
// word with a blank, a parenthesis or the like; \n, \r, \t, \' and \\ stand for what they do in
// C++. Mappings alone are words: "p=u" binds p to u, "=v" the default namespace, "q=" binds q to
// nothing.
#pragma once

#include "tests/xml/layers.hpp"

namespace test {

/// A word of the notation, between apostrophes where it needs them, or always.
std::string word(const std::string &value);
std::string inApostrophes(std::string_view value);

std::string describe(voString *string); ///< As it is; "<null>" for null.
std::string describe(XML_TEXT *text);
std::string describe(XML_CDATA *cdata);
std::string describe(XML_COMMENT *comment);
std::string describe(XML_PROCESSING_INSTRUCTION *pi);
std::string describe(XML_ATTRIBUTE *attr);
std::string describe(XML_NS_ATTRIBUTE *attr);
std::string describe(XML_ATTRIBUTES *attrs);
std::string describe(XML_NS_ATTRIBUTES *attrs);
std::string describe(XML_ITEM *item);
std::string describe(XML_NS_ITEM *item);
std::string describe(XML_ITEMS *items);
std::string describe(XML_NS_ITEMS *items);
std::string describe(XML_ELEMENT *el);
std::string describe(XML_NS_ELEMENT *el);
std::string describe(XML_NS_NAMESPACE_MAPPING *mapping);
std::string describe(XML_NS_NAMESPACE_MAP *map);

std::string describe(XML_DOCUMENT *document);

/// Whether namespace maps are written.
enum class Declarations { written, leftOut };
std::string describe(XML_NS_DOCUMENT *document, Declarations declarations = Declarations::written);

/// What a function returned: a number, or a new reference, which is released.
inline std::string taken(int64_t number) { return std::to_string(number); }
template <class T> std::string taken(T *reference) {
    Ref owned(reference);
    return owned ? describe(owned.operator->()) : "<null>";
}

/// What the notation describes. A vector of attributes may name one twice.
template <class Layer> Ref<voVector> attributeVector(std::string_view notation);
template <class Layer> Ref<typename Layer::Attributes> attributesOf(std::string_view notation);
template <class Layer> Ref<typename Layer::Items> itemsOf(std::string_view notation);
Ref<XML_NS_DOCUMENT> tree(std::string_view notation);
Ref<XML_NS_NAMESPACE_MAPPING> mapping(std::string_view word);
Ref<voVector> mappings(std::string_view words);
Ref<XML_NS_NAMESPACE_MAP> map(std::string_view words);

} // namespace test
