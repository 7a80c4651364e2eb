#include "../help.h"

static XML_NS_ELEMENT *create(const char *name, voString *ns) {
    voString *localName = str(name);
    XML_NS_ELEMENT *el = xmlNsElementCreate(localName, ns);
    voStringRelease(localName);
    return el;
}

/* An a in the namespace `svg` with an attribute href in the namespace `link`. */
static XML_NS_ELEMENT *createLink(voString *svg, voString *link) {
    XML_NS_ELEMENT *a = create("a", svg);
    voString *href = str("href"), *top = str("#top");
    xmlNsElementSetAttributeNameTextEscape(&a, href, link, top);
    voStringRelease(top);
    voStringRelease(href);
    return a;
}

/* Declares a namespace in a map, as the default one without a prefix. */
static void declare(XML_NS_NAMESPACE_MAP **map, const char *optionalPrefix, voString *ns) {
    XML_NS_NAMESPACE_MAPPING *mapping = xmlNsNamespaceMappingCreate();
    voString *prefix = optionalPrefix ? str(optionalPrefix) : NULL;
    if (prefix) {
        xmlNsNamespaceMappingSetPrefix(&mapping, prefix);
        voStringRelease(prefix);
    }
    xmlNsNamespaceMappingSetNamespace(&mapping, ns);
    xmlNsNamespaceMapSetMapping(map, mapping);
    xmlNsNamespaceMappingRelease(mapping);
}

static void printElement(XML_NS_ELEMENT *el) {
    printBytes(xmlNsElementTryEncode(el, VO_CHARSET_UTF_8));
    printf("\n");
}

int main(void) {
    voModuleStartup(xmlModule());
    voString *svg = str("http://www.w3.org/2000/svg"), *link = str("http://www.w3.org/1999/xlink");
    XML_NS_ELEMENT *drawing = create("svg", svg), *a = createLink(svg, link);
    xmlNsElementAppendItemElement(&drawing, a);
    printElement(drawing); /* Without declarations of our own the writer makes prefixes up. */

    XML_NS_NAMESPACE_MAP *map = xmlNsNamespaceMapCreate();
    declare(&map, NULL, svg);
    declare(&map, "xlink", link);
    xmlNsElementSetNamespaceMap(&drawing, map);
    printElement(drawing);

    xmlNsNamespaceMapRelease(map);
    xmlNsElementRelease(a);
    xmlNsElementRelease(drawing);
    voStringRelease(link);
    voStringRelease(svg);
    voModuleShutdown(xmlModule());
    return 0;
}
