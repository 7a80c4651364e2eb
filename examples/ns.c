/* Reads a document with prefixes, asks for an attribute by namespace and name, adds an element in
 * a namespace of its own and writes the document back. */
#include "vo/vo.h"
#include "xml/xml.h"

#include <stdio.h>

static const char text[] = "<?xml version='1.0'?>"
                           "<entry xmlns='http://www.w3.org/2005/Atom'"
                           " xmlns:r='urn:example:reading' r:minutes='12'/>";

static voString *str(const char *utf8) { return voStringTryCreateFromUtf8(utf8, -1); }

/* Prints bytes and gives up the reference to them. */
static void print(voBuffer *utf8) {
    printf("%.*s\n", (int)voBufferLength(utf8), (const char *)voBufferBacking(utf8));
    voBufferRelease(utf8);
}

static void printMinutes(XML_NS_ELEMENT *entry) {
    voString *minutes = str("minutes"), *reading = str("urn:example:reading");
    voString *value = xmlNsElementAttributeTextTryUnescape(entry, minutes, reading);
    if (value) print(voStringTryToUtf8(value));
    if (value) voStringRelease(value);
    voStringRelease(minutes);
    voStringRelease(reading);
}

static void appendMark(XML_NS_ELEMENT **entry) {
    voString *done = str("done"), *progress = str("urn:example:progress");
    XML_NS_ELEMENT *mark = xmlNsElementCreate(done, progress);
    xmlNsElementAppendItemElement(entry, mark);
    xmlNsElementRelease(mark);
    voStringRelease(done);
    voStringRelease(progress);
}

/* Changes the first element of the document. */
static void edit(XML_NS_DOCUMENT **doc) {
    XML_NS_ITEMS *items = xmlNsDocumentItems(*doc);
    XML_NS_ELEMENT *entry = xmlNsItemsItemElementAt(items, 0);
    printMinutes(entry);
    appendMark(&entry);
    xmlNsItemsSetItemElementAt(&items, 0, entry);
    xmlNsDocumentSetItems(doc, items);
    xmlNsElementRelease(entry);
    xmlNsItemsRelease(items);
}

int main(void) {
    voModuleStartup(xmlModule());
    voBuffer *xml = voBufferCreateFromBytesCopy(text, sizeof text - 1);
    XML_OPTIONS *options = xmlOptionsCreate();
    XML_DECODE_RESULT *result = xmlDocumentDecode(xml, options, NULL);
    XML_DOCUMENT *plain = xmlDecodeResultDocument(result);
    XML_NS_DECODE_RESULT *nsResult = xmlNsDocumentTryDecode(plain);
    XML_NS_DOCUMENT *doc = xmlNsDecodeResultDocument(nsResult);
    edit(&doc);
    XML_DOCUMENT *changed = xmlNsDocumentEncode(doc);
    print(xmlDocumentTryEncode(changed, options));

    xmlDocumentRelease(changed);
    xmlNsDocumentRelease(doc);
    xmlNsDecodeResultRelease(nsResult);
    xmlDocumentRelease(plain);
    xmlDecodeResultRelease(result);
    xmlOptionsRelease(options);
    voBufferRelease(xml);
    voModuleShutdown(xmlModule());
    return 0;
}
