#include "source/xml/shortcuts/xml_child_search.hpp"
#include "xml/xml_shortcuts.h"

using xml::ElementName;
using xml::findElement;
using xml::NsLayer;
using xml::PlainLayer;

XML_ELEMENT *xmlDocumentRoot(XML_DOCUMENT *doc) {
    XML_ITEMS *items = xml::itemsOf(VO_READ(doc));
    const int64_t index = findElement(PlainLayer(), items, 0, ElementName());
    return index < 0 ? nullptr : xmlItemsItemElementAt(items, index);
}

XML_NS_ELEMENT *xmlNsDocumentRoot(XML_NS_DOCUMENT *doc) {
    XML_NS_ITEMS *items = VO_READ(doc)->items;
    const int64_t index = findElement(NsLayer(), items, 0, ElementName());
    return index < 0 ? nullptr : xmlNsItemsItemElementAt(items, index);
}

XML_ELEMENT *xmlElementChild(XML_ELEMENT *el, const char *name) {
    const int64_t index = xmlElementFindChild(el, 0, name);
    return index < 0 ? nullptr : xmlElementItemElementAt(el, index);
}

XML_NS_ELEMENT *xmlNsElementChild(XML_NS_ELEMENT *el, const char *localName,
                                  const char *optionalNs) {
    const int64_t index = xmlNsElementFindChild(el, 0, localName, optionalNs);
    return index < 0 ? nullptr : xmlNsElementItemElementAt(el, index);
}

int64_t xmlElementFindChild(XML_ELEMENT *el, int64_t from, const char *name) {
    VO_ASSERT(el);
    VO_ASSERT(from >= 0);
    VO_ASSERT(name);
    return findElement(PlainLayer(), el->items, from, ElementName(name));
}

int64_t xmlNsElementFindChild(XML_NS_ELEMENT *el, int64_t from, const char *localName,
                              const char *optionalNs) {
    VO_ASSERT(el);
    VO_ASSERT(from >= 0);
    VO_ASSERT(localName);
    const ElementName name(localName,
                           optionalNs ? std::optional<std::string_view>(optionalNs) : std::nullopt);
    return findElement(NsLayer(), el->items, from, name);
}

int64_t xmlElementFindChildUtf8(XML_ELEMENT *el, int64_t from, const char *name, int64_t length) {
    VO_ASSERT(el);
    VO_ASSERT(from >= 0);
    VO_ASSERT(name);
    VO_ASSERT(length >= 0);
    return findElement(PlainLayer(), el->items, from, ElementName({name, size_t(length)}));
}

int64_t xmlNsElementFindChildUtf8(XML_NS_ELEMENT *el, int64_t from, const char *localName,
                                  int64_t length, const char *optionalNs, int64_t nsLength) {
    VO_ASSERT(el);
    VO_ASSERT(from >= 0);
    VO_ASSERT(localName);
    VO_ASSERT(length >= 0);
    VO_ASSERT(nsLength >= 0);
    std::optional<std::string_view> ns;
    if (optionalNs) ns = {optionalNs, size_t(nsLength)};
    return findElement(NsLayer(), el->items, from, ElementName({localName, size_t(length)}, ns));
}
