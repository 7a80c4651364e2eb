#include "source/vo/vo_object.hpp"
#include "xml/xml_document_encode.h"
#include "xml/xml_ns_document_encode.h"
#include "xml/xml_shortcuts.h"

using vo::Ref;

static voBuffer *tryEncodeBare(Ref<XML_DOCUMENT> doc, voCharset charset) {
    xmlDocumentSetCharset(doc.edit(), charset);
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
    return xmlDocumentTryEncode(doc, options);
}

voBuffer *xmlElementTryEncode(XML_ELEMENT *el, voCharset charset) {
    VO_ASSERT(el);
    VO_ASSERT(VO_CHARSET_OK( charset ));
    Ref doc(xmlDocumentCreate());
    xmlDocumentSetRoot(doc.edit(), el);
    return tryEncodeBare(std::move(doc), charset);
}

voBuffer *xmlNsElementTryEncode(XML_NS_ELEMENT *el, voCharset charset) {
    VO_ASSERT(el);
    VO_ASSERT(VO_CHARSET_OK( charset ));
    Ref doc(xmlNsDocumentCreate());
    xmlNsDocumentSetRoot(doc.edit(), el);
    return tryEncodeBare(Ref(xmlNsDocumentEncode(doc)), charset);
}
