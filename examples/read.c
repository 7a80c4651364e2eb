/* Prints the root element's name and its attribute "name", or where the document is wrong. */
#include "vo/vo.h"
#include "xml/xml.h"

#include <stdio.h>

/* Prints a string and gives up the reference to it. */
static void print(const char *label, voString *string) {
    voBuffer *utf8 = voStringTryToUtf8(string);
    printf("%s%.*s\n", label, (int)voBufferLength(utf8), (const char *)voBufferBacking(utf8));
    voBufferRelease(utf8);
    voStringRelease(string);
}

static void printRoot(XML_DOCUMENT *doc) {
    voString *name = voStringCreateFromCstr("name", -1);
    XML_ITEMS *items = xmlDocumentItems(doc);
    for (int64_t i = 0; i < xmlItemsLength(items); i++) {
        XML_ELEMENT *root = xmlItemsItemElementAt(items, i); /* null for text, comments, ... */
        if (!root) continue;
        print("element ", xmlElementName(root));
        voString *value = xmlElementAttributeTextTryUnescape(root, name);
        if (value) print("name = ", value);
        xmlElementRelease(root);
    }
    xmlItemsRelease(items);
    voStringRelease(name);
}

int main(int argc, char **argv) {
    static char bytes[1 << 20];
    FILE *file = argc > 1 ? fopen(argv[1], "rb") : stdin;
    if (!file) return perror(argv[1]), 2;
    voBuffer *xml =
        voBufferCreateFromBytesCopy(bytes, (int64_t)fread(bytes, 1, sizeof bytes, file));
    fclose(file);

    voModuleStartup(xmlModule());
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
        print("", voMessageToString(message));
        voMessageRelease(message);
        xmlDecodeErrorRelease(error);
    }
    xmlDecodeResultRelease(result);
    xmlOptionsRelease(options);
    voBufferRelease(xml);
    voModuleShutdown(xmlModule());
    return !doc;
}
