/* Reads a document with prefixes, asks for an attribute by namespace and name, adds an element in
 * a namespace of its own and writes the document back. */
#include "vo/vo.h"
#include "xml/xml.h"

#include <stdio.h>

static voString *str(const char *utf8) { return voStringTryCreateFromUtf8(utf8, -1); }

static void print(voBuffer *utf8) {
    printf("%.*s\n", (int)voBufferLength(utf8), (const char *)voBufferBacking(utf8));
    voBufferRelease(utf8);
}

/* Prints how long the entry takes to read, and marks it as read. */
static void mark(XML_NS_ELEMENT **entry) {
    voString *minutes = str("minutes"), *reading = str("urn:example:reading");
    voString *value = xmlNsElementAttributeTextTryUnescape(*entry, minutes, reading);
    if (value) {
        print(voStringTryToUtf8(value));
        voStringRelease(value);
    }
    voString *done = str("done"), *progress = str("urn:example:progress");
    XML_NS_ELEMENT *mark = xmlNsElementCreate(done, progress);
    xmlNsElementAppendItemElement(entry, mark);
    xmlNsElementRelease(mark);
    voString *used[] = {minutes, reading, done, progress};
    for (int i = 0; i < 4; i++)
        voStringRelease(used[i]);
}

int main(void) {
    static const char text[] = "<?xml version='1.0'?>"
                               "<entry xmlns='http://www.w3.org/2005/Atom'"
                               " xmlns:r='urn:example:reading' r:minutes='12'/>";
    voModuleStartup(xmlModule());
    voBuffer *xml = voBufferCreateFromBytesCopy(text, sizeof text - 1);
    XML_OPTIONS *options = xmlOptionsCreate();
    XML_DECODE_RESULT *result = xmlDocumentDecode(xml, options, NULL);
    XML_DOCUMENT *plain = xmlDecodeResultDocument(result);
    XML_NS_DECODE_RESULT *nsResult = xmlNsDocumentTryDecode(plain);
    XML_NS_DOCUMENT *doc = xmlNsDecodeResultDocument(nsResult);

    XML_NS_ITEMS *items = xmlNsDocumentItems(doc);
    XML_NS_ELEMENT *entry = xmlNsItemsItemElementAt(items, 0);
    mark(&entry);
    xmlNsItemsSetItemElementAt(&items, 0, entry);
    xmlNsDocumentSetItems(&doc, items);

    XML_DOCUMENT *changed = xmlNsDocumentEncode(doc);
    print(xmlDocumentTryEncode(changed, options));

    xmlDocumentRelease(changed);
    xmlNsElementRelease(entry);
    xmlNsItemsRelease(items);
    xmlNsDocumentRelease(doc);
    xmlNsDecodeResultRelease(nsResult);
    xmlDocumentRelease(plain);
    xmlDecodeResultRelease(result);
    xmlOptionsRelease(options);
    voBufferRelease(xml);
    voModuleShutdown(xmlModule());
    return 0;
}
