/* Holds objects of every kind, made and not made, and stops at inspect() for the debugger. */
#include "vo/vo.h"
#include "xml/xml.h"

#include <stdlib.h>
#include <string.h>

static const char text[] =
    "<?xml version='1.0'?>\n"
    "<a xmlns:p=\"urn:p\" x='1 \"2\"'  >one &amp; <p:b p:y = \"2\"/><!--no--><?go on?>"
    "<![CDATA[<]]><c>\xC3\xA9\n</c></a>\n";

static voString *str(const char *utf8) { return voStringTryCreateFromUtf8(utf8, -1); }

__attribute__((noinline)) static void inspect(void) { __asm__ volatile(""); }

static XML_DOCUMENT *decode(const char *bytes, size_t length) {
    voBuffer *buffer = voBufferCreateFromBytesCopy((const uint8_t *)bytes, (int64_t)length);
    XML_OPTIONS *options = xmlOptionsCreate();
    XML_DECODE_RESULT *result = xmlDocumentDecode(buffer, options, NULL);
    XML_DOCUMENT *doc = xmlDecodeResultDocument(result);
    if (!doc) abort();
    xmlDecodeResultRelease(result);
    xmlOptionsRelease(options);
    voBufferRelease(buffer);
    return doc;
}

static XML_NS_DOCUMENT *decodeNs(XML_DOCUMENT *plain) {
    XML_NS_DECODE_RESULT *result = xmlNsDocumentTryDecode(plain);
    XML_NS_DOCUMENT *doc = xmlNsDecodeResultDocument(result);
    if (!doc) abort();
    xmlNsDecodeResultRelease(result);
    return doc;
}

/* Decodes `before`, `count` times `repeated`, and `behind`. */
static XML_DOCUMENT *decodeMany(const char *before, int count, const char *repeated,
                                const char *behind) {
    char *bytes = malloc(strlen(before) + (size_t)count * strlen(repeated) + strlen(behind) + 1);
    if (!bytes) abort();
    char *at = bytes + strlen(strcpy(bytes, before));
    for (int i = 0; i < count; ++i)
        at += strlen(strcpy(at, repeated));
    strcpy(at, behind);
    XML_DOCUMENT *doc = decode(bytes, strlen(bytes));
    free(bytes);
    return doc;
}

int main(void) {
    voModuleStartup(xmlModule());
    XML_DOCUMENT *unmade = decode(text, sizeof text - 1);
    XML_DOCUMENT *doc = decode(text, sizeof text - 1);
    XML_ELEMENT *root = xmlDocumentRoot(doc);
    XML_ELEMENT *half = xmlDocumentRoot(unmade);
    XML_ITEMS *halfItems = xmlElementItems(half);
    xmlElementMakeAll(root);
    XML_ATTRIBUTES *attributes = xmlElementAttributes(root);
    XML_ITEMS *items = xmlElementItems(root);
    XML_ITEM *item = xmlItemsItemAt(items, 0);
    voObj *object = xmlItemObj(item);
    voBuffer *bytes = voBufferCreateFromBytesCopy((const uint8_t *)"a\0b", 3);
    voString *string = str("say \"\xE2\x82\xAC\"\n");
    voVector *vector = voVectorCreate();
    voVectorAppendObj(&vector, voStringObj(string));
    voVectorAppendObj(&vector, object);

    /* Its records take several blocks. */
    XML_DOCUMENT *wide = decodeMany("<?xml version='1.0'?><r>", 20000, "<i/>", "<z last=''/></r>");
    XML_ELEMENT *deep = xmlElementCreate(str("deep"));
    for (int i = 0; i < 5000; ++i) {
        XML_ELEMENT *outer = xmlElementCreate(str("d"));
        xmlElementAppendItemElement(&outer, deep);
        deep = outer;
    }

    XML_NS_DOCUMENT *nsUnmade = decodeNs(unmade);
    XML_NS_DOCUMENT *nsDoc = decodeNs(doc);
    XML_NS_ITEMS *nsItems = xmlNsDocumentItems(nsDoc);
    XML_NS_ELEMENT *nsRoot = xmlNsItemsItemElementAt(nsItems, 1);
    xmlNsElementMakeAll(nsRoot);
    XML_DOCUMENT *encoded = xmlNsDocumentEncode(nsDoc);

    XML_ELEMENT *none = NULL;
    uint64_t words[4] = {1, 2, 3, 4};
    voString *wild = (voString *)(void *)words;
    XML_ELEMENT *other = (XML_ELEMENT *)(void *)string;
    inspect();

    return !(unmade && half && halfItems && attributes && object && bytes && vector && wide &&
             deep && nsUnmade && encoded && !none && wild && other);
}
