#include "xml/xml_ns_builtin_namespaces.h"

#include "source/vo/vo_object.hpp"

static voString *xmlPrefix;
static voString *xmlNamespace;
static voString *xmlnsPrefix;
static voString *xmlnsNamespace;

void xml___NsBuiltinNamespacesStartup(void) {
    xmlPrefix = voStringCreateFromCstr("xml", -1);
    xmlNamespace = voStringCreateFromCstr("http://www.w3.org/XML/1998/namespace", -1);
    xmlnsPrefix = voStringCreateFromCstr("xmlns", -1);
    xmlnsNamespace = voStringCreateFromCstr("http://www.w3.org/2000/xmlns/", -1);
}
void xml___NsBuiltinNamespacesShutdown(void) {
    vo::dropField(xmlPrefix);
    vo::dropField(xmlNamespace);
    vo::dropField(xmlnsPrefix);
    vo::dropField(xmlnsNamespace);
}

voString *xml___NsBuiltinNamespacesXmlPrefix(void) { return vo::retained(xmlPrefix); }
voString *xml___NsBuiltinNamespacesXmlNamespace(void) { return vo::retained(xmlNamespace); }
voString *xml___NsBuiltinNamespacesXmlnsPrefix(void) { return vo::retained(xmlnsPrefix); }
voString *xml___NsBuiltinNamespacesXmlnsNamespace(void) { return vo::retained(xmlnsNamespace); }

int xml___NsBuiltinNamespacesIsXmlPrefix(voString *str) { return voStringEquals(str, xmlPrefix); }
int xml___NsBuiltinNamespacesIsXmlNamespace(voString *str) {
    return voStringEquals(str, xmlNamespace);
}
int xml___NsBuiltinNamespacesIsXmlnsPrefix(voString *str) {
    return voStringEquals(str, xmlnsPrefix);
}
int xml___NsBuiltinNamespacesIsXmlnsNamespace(voString *str) {
    return voStringEquals(str, xmlnsNamespace);
}
