/* Prints the titles of the entries of a feed. */
#include "vo/vo.h"
#include "xml/xml.h"

#include <stdio.h>

int main(int argc, char **argv) {
    voModuleStartup(xmlModule());
    int error;
    XML_DECODE_RESULT *result = argc > 1 ? xmlDocumentTryDecodeFile(argv[1], NULL, &error) : NULL;
    XML_DOCUMENT *doc = result ? xmlDecodeResultDocument(result) : NULL;
    XML_ELEMENT *feed = doc ? xmlDocumentRoot(doc) : NULL;
    for (int64_t i = 0; feed && (i = xmlElementFindChild(feed, i, "entry")) >= 0; i++) {
        XML_ELEMENT *entry = xmlElementItemElementAt(feed, i);
        XML_ELEMENT *title = xmlElementChild(entry, "title");
        char *text = title ? xmlElementTryContentUtf8(title, NULL) : NULL;
        if (text) puts(text);
        voMemFree(text); /* What a function gives belongs to the caller. */
        if (title) xmlElementRelease(title);
        xmlElementRelease(entry);
    }
    if (feed) xmlElementRelease(feed);
    if (doc) xmlDocumentRelease(doc);
    if (result) xmlDecodeResultRelease(result);
    voModuleShutdown(xmlModule());
    return doc ? 0 : 1;
}
