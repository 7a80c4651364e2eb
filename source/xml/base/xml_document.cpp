#include "xml/xml_document.h"

#include "source/xml/base/xml_document.hpp"
#include "source/xml/base/xml_element.hpp"
#include "source/xml/base/xml_item.hpp"
#include "source/xml/base/xml_items.hpp"
#include "source/xml/base/xml_object.hpp"
#include "source/xml/ns/xml_ns_encoding.hpp"
#include "xml/xml_value.h"

using vo::retained;

XML_OBJECT(Document, XML_DOCUMENT, doc);
XML_LOCATION(Document, XML_DOCUMENT, doc);

XML_DOCUMENT *xmlDocumentCreate(void) {
    auto *doc = vo::create<XML_DOCUMENT>(xmlDocumentSort());
    doc->charset = VO_CHARSET_UTF_8;
    doc->items.set(xmlItemsCreate());
    return doc;
}

voString *xmlDocumentVersion(XML_DOCUMENT *doc) { return retained(VO_READ(doc)->version.get()); }
void xmlDocumentSetVersion(XML_DOCUMENT **doc, voString *version) {
    VO_ASSERT_REF(doc);
    VO_ASSERT(xmlValueVersionNumOk( version ));
    VO_EDIT(doc)->version.set(version);
}
voCharset xmlDocumentCharset(XML_DOCUMENT *doc) { return VO_READ(doc)->charset; }
void xmlDocumentSetCharset(XML_DOCUMENT **doc, voCharset charset) {
    VO_ASSERT_REF(doc);
    VO_ASSERT(VO_CHARSET_OK( charset ));
    VO_EDIT(doc)->charset = charset;
}
int xmlDocumentStandalone(XML_DOCUMENT *doc) { return VO_READ(doc)->standalone; }
void xmlDocumentSetStandalone(XML_DOCUMENT **doc, int standalone) {
    VO_EDIT(doc)->standalone = standalone != 0;
}
XML_ITEMS *xmlDocumentItems(XML_DOCUMENT *doc) { return retained(xml::itemsOf(VO_READ(doc))); }
void xmlDocumentSetItems(XML_DOCUMENT **doc, XML_ITEMS *items) {
    VO_ASSERT_REF(doc);
    VO_ASSERT(items);
    VO_EDIT(doc)->items.replace(retained(items));
}
void xmlDocumentMakeAll(XML_DOCUMENT *doc) {
    xml::makeAll<XML_ITEM, XML_ELEMENT>(xml::itemsOf(VO_READ(doc)));
}

/// Makes the items without holding a lock, because making them may take the locks of other sources.
/// Two threads may do this at once; the result of one of them is then dropped.
XML_ITEMS *XML_DOCUMENT::makeItems() {
    const vo::Ref encoding = items.holdPending();
    if (!encoding) return items.made();
    vo::Ref made(xml::makeItems(encoding));
    return items.get([&](xml::NsEncoding *) { return made.take(); });
}
