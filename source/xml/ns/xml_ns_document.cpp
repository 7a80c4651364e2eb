#include "xml/xml_ns_document.h"

#include "source/xml/base/xml_object.hpp"
#include "source/xml/ns/xml_ns_document.hpp"
#include "source/xml/ns/xml_ns_element.hpp"
#include "source/xml/ns/xml_ns_item.hpp"
#include "source/xml/ns/xml_ns_items.hpp"
#include "xml/xml_value.h"

using vo::assign;
using vo::retained;

XML_OBJECT(NsDocument, XML_NS_DOCUMENT, doc);
XML_LOCATION(NsDocument, XML_NS_DOCUMENT, doc);

XML_NS_DOCUMENT *xmlNsDocumentCreate(void) {
    auto *doc = vo::create<XML_NS_DOCUMENT>(xmlNsDocumentSort());
    doc->charset = VO_CHARSET_UTF_8;
    doc->items = xmlNsItemsCreate();
    return doc;
}

voString *xmlNsDocumentVersion(XML_NS_DOCUMENT *doc) {
    return retained(VO_READ(doc)->version.get());
}
void xmlNsDocumentSetVersion(XML_NS_DOCUMENT **doc, voString *version) {
    VO_ASSERT_REF(doc);
    VO_ASSERT(xmlValueVersionNumOk( version ));
    VO_EDIT(doc)->version.set(version);
}
voCharset xmlNsDocumentCharset(XML_NS_DOCUMENT *doc) { return VO_READ(doc)->charset; }
void xmlNsDocumentSetCharset(XML_NS_DOCUMENT **doc, voCharset charset) {
    VO_ASSERT_REF(doc);
    VO_ASSERT(VO_CHARSET_OK( charset ));
    VO_EDIT(doc)->charset = charset;
}
int xmlNsDocumentStandalone(XML_NS_DOCUMENT *doc) { return VO_READ(doc)->standalone; }
void xmlNsDocumentSetStandalone(XML_NS_DOCUMENT **doc, int standalone) {
    VO_EDIT(doc)->standalone = standalone != 0;
}
XML_NS_ITEMS *xmlNsDocumentItems(XML_NS_DOCUMENT *doc) { return retained(VO_READ(doc)->items); }
void xmlNsDocumentSetItems(XML_NS_DOCUMENT **doc, XML_NS_ITEMS *items) {
    VO_ASSERT_REF(doc);
    VO_ASSERT(items);
    assign(VO_EDIT(doc)->items, items);
}
void xmlNsDocumentMakeAll(XML_NS_DOCUMENT *doc) {
    xml::makeAll<XML_NS_ITEM, XML_NS_ELEMENT>(VO_READ(doc)->items);
}
