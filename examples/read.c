/* Prints the name of the root element and its attribute "name", or where the document is wrong. */
#include "vo/vo.h"
#include "xml/xml.h"

#include <stdio.h>

/* Prints a string and gives up the reference to it. */
static void print(voString *string) {
    voBuffer *utf8 = voStringTryToUtf8(string);
    printf("%.*s\n", (int)voBufferLength(utf8), (const char *)voBufferBacking(utf8));
    voBufferRelease(utf8);
    voStringRelease(string);
}

static void printRoot(XML_DOCUMENT *doc) {
    voString *name = voStringCreateFromCstr("name", -1);
    XML_ITEMS *items = xmlDocumentItems(doc);
    XML_ELEMENT *root = NULL; /* comments and line ends may stand before it */
    for (int64_t i = 0; !root && i < xmlItemsLength(items); i++)
        root = xmlItemsItemElementAt(items, i);
    if (root) {
        print(xmlElementName(root));
        if (xmlElementHasAttribute(root, name)) print(xmlElementAttributeTextValue(root, name));
        xmlElementRelease(root);
    }
    xmlItemsRelease(items);
    voStringRelease(name);
}

int main(int argc, char **argv) {
    static char bytes[1 << 20];
    if (argc < 2 || !freopen(argv[1], "rb", stdin)) return 2;
    int64_t count = (int64_t)fread(bytes, 1, sizeof bytes, stdin);
    if (count == (int64_t)sizeof bytes) return 2; /* too large for this example */

    voModuleStartup(xmlModule());
    voBuffer *xml = voBufferCreateFromBytesCopy(bytes, count);
    XML_OPTIONS *options = xmlOptionsCreate();
    xmlOptionsSetFlags(&options, XML_FLAG_DECODE_LOCATION);
    XML_DECODE_RESULT *result = xmlDocumentDecode(xml, options, NULL);
    XML_DOCUMENT *doc = xmlDecodeResultDocument(result);
    if (doc) {
        printRoot(doc);
        xmlDocumentRelease(doc);
    } else {
        XML_DECODE_ERROR *error = xmlDecodeResultError(result);
        voMessage *message = xmlDecodeErrorToMessage(error);
        print(voMessageToString(message)); /* 12:3: error: mismatched opening/closing XML tags */
        voMessageRelease(message);
        xmlDecodeErrorRelease(error);
    }
    xmlDecodeResultRelease(result);
    xmlOptionsRelease(options);
    voBufferRelease(xml);
    voModuleShutdown(xmlModule());
    return !doc;
}
