#include "xml/xml_ns_value.h"

#include "source/vo/vo_array.hpp"
#include "source/xml/ns/xml_ns_skip.hpp"
#include "xml/xml_ns_builtin_namespaces.h"

static bool isNcname(voString *str) {
    return xml::isNcname(std::span<const uint32_t>(str->items(), size_t(str->length)));
}

int xmlNsValuePrefixOk(voString *prefix) { return isNcname(VO_READ(prefix)); }

int xmlNsValueLocalNameOk(voString *localName) { return isNcname(VO_READ(localName)); }

int xmlNsValueNamespaceOk(voString *ns) {
    return VO_READ(ns)->length > 0 && !xml___NsBuiltinNamespacesIsXmlnsNamespace(ns);
}
