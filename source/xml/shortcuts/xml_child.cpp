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
    return xmlElementFindChildUtf8(el, from, name, -1);
}

int64_t xmlNsElementFindChild(XML_NS_ELEMENT *el, int64_t from, const char *localName,
                              const char *optionalNs) {
    return xmlNsElementFindChildUtf8(el, from, localName, -1, optionalNs, -1);
}

/// A length of -1 says that a NUL ends the text.
static std::string_view textOf(const char *utf8, int64_t length) {
    return length < 0 ? std::string_view(utf8) : std::string_view(utf8, size_t(length));
}

int64_t xmlElementFindChildUtf8(XML_ELEMENT *el, int64_t from, const char *name, int64_t length) {
    VO_ASSERT(el);
    VO_ASSERT(from >= 0);
    VO_ASSERT(name);
    VO_ASSERT(length >= -1);
    return findElement(PlainLayer(), el->items, from, ElementName(textOf(name, length)));
}

int64_t xmlNsElementFindChildUtf8(XML_NS_ELEMENT *el, int64_t from, const char *localName,
                                  int64_t length, const char *optionalNs, int64_t nsLength) {
    VO_ASSERT(el);
    VO_ASSERT(from >= 0);
    VO_ASSERT(localName);
    VO_ASSERT(length >= -1);
    VO_ASSERT(nsLength >= -1);
    std::optional<std::string_view> ns;
    if (optionalNs) ns = textOf(optionalNs, nsLength);
    return findElement(NsLayer(), el->items, from, ElementName(textOf(localName, length), ns));
}
