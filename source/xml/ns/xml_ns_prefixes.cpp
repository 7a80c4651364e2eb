#include "source/xml/ns/xml_ns_prefixes.hpp"

#include "xml/xml_ns_builtin_namespaces.h"

#include <algorithm>

using vo::Ref;

namespace xml {
namespace {

using Mapping = XML_NS_NAMESPACE_MAPPING;

/// The number in letters, a being the digit 0.
Ref<voString> prefixOf(int64_t number) {
    uint32_t letters[16];
    size_t first = std::size(letters);
    do {
        letters[--first] = 'a' + uint32_t(number % 26);
        number /= 26;
    } while (number > 0);
    return Ref(voStringCreateFromCharsCopy(letters + first, int64_t(std::size(letters) - first)));
}

} // namespace

PrefixChoice::PrefixChoice()
    : xmlPrefix(xml___NsBuiltinNamespacesXmlPrefix()), noDefault(xmlNsNamespaceMappingCreate()),
      xmlNamespace(&scope.ns(Ref(xml___NsBuiltinNamespacesXmlNamespace()))) {
    scope.at(xmlPrefix); // No generated prefix is one of these.
    scope.at(Ref(xml___NsBuiltinNamespacesXmlnsPrefix()));
    scope.bind(noDefault);
}

PrefixChoice::Change PrefixChoice::enter(Ref<XML_NS_NAMESPACE_MAP> optionalOwn, bool hasNamespace,
                                         NsMappings pending) {
    Change change{scope.mark(), nullptr};
    declared.clear();
    for (Mapping *mapping : pending)
        if (!optionalOwn || !findMapping(optionalOwn, mapping->prefix)) declared.push_back(mapping);
    if (optionalOwn) {
        const auto own = mappingsOf(optionalOwn);
        declared.insert(declared.end(), own.begin(), own.end());
        kept.push_back(std::move(optionalOwn));
    }
    scope.bindAll(declared);
    if (!hasNamespace) change.cancelled = cancelDefault();
    return change;
}

/// Makes sure that no default namespace is in force. Returns what bound one, or null.
Mapping *PrefixChoice::cancelDefault() {
    Mapping *cancelled = scope.forDefault().state.mapping;
    if (!cancelled->ns) return nullptr;
    std::erase_if(declared, [](const Mapping *mapping) { return !mapping->prefix; });
    declared.push_back(noDefault);
    scope.bind(noDefault);
    return cancelled;
}

voString *PrefixChoice::elementPrefix(voString *optionalNs) {
    if (!optionalNs) return nullptr;
    const Binding *binding = scope.named(optionalNs).first();
    const Mapping *mapping = binding ? binding->state.mapping : nullptr;
    if (!mapping && isXml(optionalNs)) return xmlPrefix;
    VO_ASSERT(mapping);
    return mapping->prefix;
}

voString *PrefixChoice::attributePrefix(voString *optionalNs) {
    if (!optionalNs) return nullptr;
    const Binding *binding = scope.named(optionalNs).firstPrefixed();
    voString *nsPrefix = binding ? binding->state.mapping->prefix : nullptr;
    if (!nsPrefix && isXml(optionalNs)) nsPrefix = xmlPrefix;
    VO_ASSERT(nsPrefix);
    return nsPrefix;
}

/// Never generates a prefix that the scope has seen, bound or not.
void PrefixChoice::generate(const vo::Vec<Namespace *> &unbound) {
    int64_t number = 0;
    for (const Namespace *ns : unbound) {
        Ref prefix = prefixOf(number++);
        while (scope.find(prefix))
            prefix = prefixOf(number++);
        Ref mapping(xmlNsNamespaceMappingCreate());
        xmlNsNamespaceMappingSetPrefix(mapping.edit(), prefix);
        xmlNsNamespaceMappingSetNamespace(mapping.edit(), ns->key);
        top.push_back(mapping);
        generated.push_back(std::move(mapping));
    }
}

} // namespace xml
