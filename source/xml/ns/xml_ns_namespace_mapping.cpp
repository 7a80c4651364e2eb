#include "source/xml/ns/xml_ns_namespace_mapping.hpp"

#include "source/xml/base/xml_object.hpp"
#include "xml/xml_ns_value.h"

using vo::assign;
using vo::Ref;
using vo::retained;

XML_OBJECT(NsNamespaceMapping, XML_NS_NAMESPACE_MAPPING, mapping);

XML_NS_NAMESPACE_MAPPING *xmlNsNamespaceMappingCreate(void) {
    return vo::create<XML_NS_NAMESPACE_MAPPING>(xmlNsNamespaceMappingSort());
}

voStore *xmlNsNamespaceMappingStore(XML_NS_NAMESPACE_MAPPING *mapping) {
    VO_ASSERT(mapping);
    voStore *store = voStoreCreate();
    if (mapping->prefix) voStoreSetValueCstr(&store, "prefix", -1, mapping->prefix);
    if (mapping->ns) voStoreSetValueCstr(&store, "namespace", -1, mapping->ns);
    return store;
}
XML_NS_NAMESPACE_MAPPING *xmlNsNamespaceMappingRestore(voStore *store) {
    VO_ASSERT(store);
    XML_NS_NAMESPACE_MAPPING *mapping = xmlNsNamespaceMappingCreate();
    Ref prefix(voStoreValueCstr(store, "prefix", -1));
    Ref ns(voStoreValueCstr(store, "namespace", -1));
    if (prefix && xmlNsValuePrefixOk(prefix)) assign(mapping->prefix, prefix);
    if (ns && xmlNsValueNamespaceOk(ns)) assign(mapping->ns, ns);
    return mapping;
}

int xmlNsNamespaceMappingIsDefault(XML_NS_NAMESPACE_MAPPING *mapping) { return !mapping->prefix; }

voString *xmlNsNamespaceMappingPrefix(XML_NS_NAMESPACE_MAPPING *mapping) {
    return retained(VO_READ(mapping)->prefix);
}
int xmlNsNamespaceMappingHasPrefix(XML_NS_NAMESPACE_MAPPING *mapping) {
    return VO_READ(mapping)->prefix != nullptr;
}
void xmlNsNamespaceMappingSetPrefix(XML_NS_NAMESPACE_MAPPING **mapping, voString *prefix) {
    VO_ASSERT_REF(mapping);
    VO_ASSERT(xmlNsValuePrefixOk( prefix ));
    assign(VO_EDIT(mapping)->prefix, prefix);
}
void xmlNsNamespaceMappingDelPrefix(XML_NS_NAMESPACE_MAPPING **mapping) {
    assign(VO_EDIT(mapping)->prefix, nullptr);
}

voString *xmlNsNamespaceMappingNamespace(XML_NS_NAMESPACE_MAPPING *mapping) {
    return retained(VO_READ(mapping)->ns);
}
int xmlNsNamespaceMappingHasNamespace(XML_NS_NAMESPACE_MAPPING *mapping) {
    return VO_READ(mapping)->ns != nullptr;
}
void xmlNsNamespaceMappingSetNamespace(XML_NS_NAMESPACE_MAPPING **mapping, voString *ns) {
    VO_ASSERT_REF(mapping);
    VO_ASSERT(xmlNsValueNamespaceOk( ns ));
    assign(VO_EDIT(mapping)->ns, ns);
}
void xmlNsNamespaceMappingDelNamespace(XML_NS_NAMESPACE_MAPPING **mapping) {
    assign(VO_EDIT(mapping)->ns, nullptr);
}
