/* What a C program relies on: one header of each library, and constants that are constant. */
#include "vo/vo.h"
#include "xml/xml.h"

_Static_assert(XML_ITEM_TYPE_ELEMENT == 0 && XML_ITEM_TYPE_CDATA == 4, "item types");
_Static_assert(XML_CURSOR_TYPE_DOCUMENT == 5 && XML_CURSOR_TYPE_ATTRIBUTE == 6, "cursor types");
_Static_assert(XML_DECODE_ERROR_CODE_CHARSET == 0 && XML_DECODE_ERROR_CODE_TEXT == 10, "codes");
_Static_assert(XML_NS_DECODE_ERROR_CODE_LOCAL_NAME == 3, "namespace codes");
_Static_assert(XML_FLAG_DECODE_LOCATION == 1 && XML_FLAG_ENCODE_OMIT_XML_DECLARATION == 2, "flags");
_Static_assert(VO_MESSAGE_ERROR == 3, "message kinds");
_Static_assert(VO_CHARSET_FLAG_BOM == 1 && VO_NLF_FLAG_PS == 128, "runtime flags");
_Static_assert(sizeof(XML_ITEM_TYPE) == 8 && sizeof(XML_DECODE_ERROR_CODE) == 8, "wide codes");
_Static_assert(sizeof(XML_FLAGS) == 8 && sizeof(voCharset) == 8, "wide words");

int main(void) {
    if (!voModuleStartup(xmlModule()) || voxmlVersion() != VOXML_VERSION) return 1;
    XML_DOCUMENT *doc = xmlDocumentCreate();
    XML_OPTIONS *options = xmlOptionsCreate();
    voBuffer *xml = xmlDocumentTryEncode(doc, options);
    XML_DECODE_RESULT *result = xmlDocumentDecode(xml, options, (voParserLocation *)0);
    int failed = !xmlDecodeResultHasDocument(result);
    xmlDecodeResultRelease(result);
    voBufferRelease(xml);
    xmlOptionsRelease(options);
    xmlDocumentRelease(doc);
    voModuleShutdown(xmlModule());
    return failed;
}
