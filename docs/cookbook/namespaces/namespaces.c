#include "../help.h"

static const char atom[] = "http://www.w3.org/2005/Atom", reading[] = "urn:example:reading";

static XML_NS_DOCUMENT *resolve(XML_DOCUMENT *plain) {
    XML_NS_DECODE_RESULT *result = xmlNsDocumentTryDecode(plain);
    XML_NS_DOCUMENT *doc = xmlNsDecodeResultDocument(result);
    xmlNsDecodeResultRelease(result);
    if (!doc) fail("the namespaces are not in order");
    return doc;
}

static void printEntry(XML_NS_ELEMENT *entry) {
    XML_NS_ELEMENT *title = xmlNsElementChild(entry, "title", atom);
    char *text = title ? xmlNsElementTryContentUtf8(title, NULL) : NULL;
    char *minutes = xmlNsElementAttributeTryUtf8(entry, "minutes", reading, NULL);
    printf("%s: %s minutes\n", text ? text : "?", minutes ? minutes : "?");
    voMemFree(minutes);
    voMemFree(text);
    if (title) xmlNsElementRelease(title);
}

int main(void) {
    voModuleStartup(xmlModule());
    XML_DOCUMENT *plain = decodeFile("feed.xml");
    XML_NS_DOCUMENT *feed = resolve(plain);
    XML_NS_ELEMENT *root = xmlNsDocumentRoot(feed);
    for (int64_t i = 0; (i = xmlNsElementFindChild(root, i, "entry", atom)) >= 0; i++) {
        XML_NS_ELEMENT *entry = xmlNsElementItemElementAt(root, i);
        printEntry(entry);
        xmlNsElementRelease(entry);
    }
    xmlNsElementRelease(root);
    xmlNsDocumentRelease(feed);
    xmlDocumentRelease(plain);
    voModuleShutdown(xmlModule());
    return 0;
}
