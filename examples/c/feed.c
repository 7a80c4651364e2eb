/* Prints date and title of every entry of an Atom feed, whatever its prefixes: feed FILE */
#include "report.h"

static const char atom[] = "http://www.w3.org/2005/Atom";

/* The text of a child, which the caller frees, or null. */
static char *childText(XML_NS_ELEMENT *entry, const char *name) {
    XML_NS_ELEMENT *child = xmlNsElementChild(entry, name, atom);
    if (!child) return NULL;
    char *text = xmlNsElementTryContentUtf8(child, NULL);
    xmlNsElementRelease(child);
    return text;
}

static void printEntry(XML_NS_ELEMENT *entry) {
    char *date = childText(entry, "updated"), *title = childText(entry, "title");
    if (date && title) printf("%s %s\n", date, title);
    voMemFree(date);
    voMemFree(title);
}

static void printEntries(XML_NS_ELEMENT *feed) {
    for (int64_t i = 0; (i = xmlNsElementFindChild(feed, i, "entry", atom)) >= 0; i++) {
        XML_NS_ELEMENT *entry = xmlNsElementItemElementAt(feed, i);
        printEntry(entry);
        xmlNsElementRelease(entry);
    }
}

static int printFeed(XML_DOCUMENT *plain) {
    XML_NS_DECODE_RESULT *result = xmlNsDocumentTryDecode(plain);
    XML_NS_DOCUMENT *doc = xmlNsDecodeResultDocument(result);
    XML_NS_ELEMENT *root = doc ? xmlNsDocumentRoot(doc) : NULL;
    if (root) {
        printEntries(root);
        xmlNsElementRelease(root);
    }
    if (doc) xmlNsDocumentRelease(doc);
    xmlNsDecodeResultRelease(result);
    return root ? 0 : 1;
}

int main(int argc, char **argv) {
    if (argc != 2) return 2;
    voModuleStartup(xmlModule());
    XML_DOCUMENT *plain = decodeFile(argv[1]);
    int status = plain ? printFeed(plain) : 1;
    if (plain) xmlDocumentRelease(plain);
    voModuleShutdown(xmlModule());
    return status;
}
