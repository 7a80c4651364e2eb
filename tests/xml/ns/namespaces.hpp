// Namespace mappings and maps written as text: "p=urn:x =urn:y q=" binds p, the default namespace
// and, to nothing, q.
#pragma once

#include "tests/support.hpp"
#include "xml/xml.h"

#include <sstream>

namespace test {

inline Ref<XML_NS_NAMESPACE_MAPPING> mapping(std::string_view declaration) {
    const size_t equals = declaration.find('=');
    Ref made(xmlNsNamespaceMappingCreate());
    if (equals > 0) xmlNsNamespaceMappingSetPrefix(made.edit(), str(declaration.substr(0, equals)));
    if (equals + 1 < declaration.size())
        xmlNsNamespaceMappingSetNamespace(made.edit(), str(declaration.substr(equals + 1)));
    return made;
}

inline Ref<voVector> mappings(const std::string &declarations) {
    Ref made(voVectorCreate());
    std::istringstream words(declarations);
    for (std::string word; words >> word;)
        voVectorAppendObj(made.edit(), xmlNsNamespaceMappingObj(mapping(word)));
    return made;
}

inline Ref<XML_NS_NAMESPACE_MAP> map(const std::string &declarations) {
    Ref made(xmlNsNamespaceMapCreate());
    xmlNsNamespaceMapSetMappingsVector(made.edit(), mappings(declarations));
    return made;
}

/// The text of a mapping; "<null>" for null.
inline std::string text(XML_NS_NAMESPACE_MAPPING *mapping) {
    if (!mapping) return "<null>";
    const auto part = [](voString *string) { return string ? take(string) : ""; };
    return part(xmlNsNamespaceMappingPrefix(mapping)) + "=" +
           part(xmlNsNamespaceMappingNamespace(mapping));
}
inline std::string take(XML_NS_NAMESPACE_MAPPING *mapping) {
    Ref owned(mapping);
    return text(owned);
}

inline std::string text(XML_NS_NAMESPACE_MAP *map) {
    std::string all;
    for (int64_t i = 0; i < xmlNsNamespaceMapLength(map); ++i)
        all += (i ? " " : "") + take(xmlNsNamespaceMapMappingAt(map, i));
    return all;
}

} // namespace test
