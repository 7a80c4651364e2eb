#include "../help.h"

/* Appends the entries of another root. The elements are shared, not copied. */
static void appendEntries(XML_ELEMENT **root, XML_ELEMENT *other) {
    for (int64_t i = 0; (i = xmlElementFindChild(other, i, "entry")) >= 0; i++) {
        XML_ELEMENT *entry = xmlElementItemElementAt(other, i);
        append(root, entry);
    }
}

int main(void) {
    voModuleStartup(xmlModule());
    XML_DOCUMENT *log = decodeFile("first.xml"), *other = decodeFile("second.xml");
    XML_ELEMENT *root = xmlDocumentTakeRoot(&log), *otherRoot = xmlDocumentRoot(other);
    XML_ELEMENT *merged = createElement("merged", NULL);
    appendEntries(&root, otherRoot);
    xmlElementInsertItemElement(&root, 0, merged);
    xmlDocumentSetRoot(&log, root);
    printBytes(xmlElementTryEncode(root, VO_CHARSET_UTF_8));
    printf("\n%lld entries in the other\n", (long long)xmlElementItemsLength(otherRoot));
    xmlElementRelease(merged);
    xmlElementRelease(otherRoot);
    xmlElementRelease(root);
    xmlDocumentRelease(other);
    xmlDocumentRelease(log);
    voModuleShutdown(xmlModule());
    return 0;
}
