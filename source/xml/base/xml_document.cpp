#include "xml/xml_document.h"

#include "source/xml/base/xml_document.hpp"
#include "source/xml/base/xml_object.hpp"
#include "xml/xml_value.h"

using vo::assign;
using vo::retained;

XML_OBJECT(Document, XML_DOCUMENT, doc);
XML_LOCATION(Document, XML_DOCUMENT, doc);

XML_DOCUMENT *xmlDocumentCreate(void) {
    auto *doc = vo::create<XML_DOCUMENT>(xmlDocumentSort());
    doc->version = voStringCreateFromCstr("1.0", -1);
    doc->charset = VO_CHARSET_UTF_8;
    doc->items = xmlItemsCreate();
    return doc;
}

voString *xmlDocumentVersion(XML_DOCUMENT *doc) { return retained(VO_READ(doc)->version); }
void xmlDocumentSetVersion(XML_DOCUMENT **doc, voString *version) {
    VO_ASSERT_REF(doc);
    VO_ASSERT(xmlValueVersionNumOk( version ));
    assign(VO_EDIT(doc)->version, version);
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
XML_ITEMS *xmlDocumentItems(XML_DOCUMENT *doc) { return retained(VO_READ(doc)->items); }
void xmlDocumentSetItems(XML_DOCUMENT **doc, XML_ITEMS *items) {
    VO_ASSERT_REF(doc);
    VO_ASSERT(items);
    assign(VO_EDIT(doc)->items, items);
}
