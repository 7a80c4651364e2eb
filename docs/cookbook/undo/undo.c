#include "../help.h"

static void appendParagraph(XML_DOCUMENT **doc, const char *word) {
    XML_ELEMENT *page = xmlDocumentTakeRoot(doc);
    append(&page, createElement("p", word));
    xmlDocumentSetRoot(doc, page);
    xmlElementRelease(page);
}

static void printRoot(XML_DOCUMENT *doc) {
    XML_ELEMENT *root = xmlDocumentRoot(doc);
    printBytes(xmlElementTryEncode(root, VO_CHARSET_UTF_8));
    printf("\n");
    xmlElementRelease(root);
}

static XML_ELEMENT *first(XML_DOCUMENT *doc) {
    XML_ELEMENT *root = xmlDocumentRoot(doc), *p = xmlElementChild(root, "p");
    xmlElementRelease(root);
    return p;
}

static void compare(XML_DOCUMENT *a, XML_DOCUMENT *b) {
    XML_ELEMENT *pOfA = first(a), *pOfB = first(b);
    printf("%s\n", xmlElementEquals(pOfA, pOfB) ? "one and the same" : "two");
    xmlElementRelease(pOfB);
    xmlElementRelease(pOfA);
}

int main(void) {
    static const char *const words[] = {"One", "Two", "Three"};
    voModuleStartup(xmlModule());
    XML_DOCUMENT *doc = xmlDocumentCreate(), *versions[3];
    XML_ELEMENT *page = createElement("page", NULL);
    xmlDocumentSetRoot(&doc, page);
    xmlElementRelease(page);
    for (int i = 0; i < 3; i++) { /* Each shares with the next all that the two have in common. */
        versions[i] = xmlDocumentRetain(doc);
        appendParagraph(&doc, words[i]);
    }
    printRoot(doc);
    xmlDocumentRelease(doc);
    doc = xmlDocumentRetain(versions[2]); /* Undo. */
    printRoot(doc);
    compare(versions[1], versions[2]);

    xmlDocumentRelease(doc);
    for (int i = 0; i < 3; i++)
        xmlDocumentRelease(versions[i]);
    voModuleShutdown(xmlModule());
    return 0;
}
