#include "../help.h"

/* Prints the text of a child, if there is one, behind a word. */
static void printChild(XML_ELEMENT *el, const char *name, const char *before) {
    XML_ELEMENT *child = xmlElementChild(el, name);
    if (!child) return;
    char *text = xmlElementTryContentUtf8(child, NULL);
    if (text) printf("%s%s", before, text);
    voMemFree(text);
    xmlElementRelease(child);
}

static void printBook(XML_ELEMENT *book) {
    char *lang = xmlElementAttributeTryUtf8(book, "lang", NULL);
    if (lang && strcmp(lang, "fr") == 0) {
        char *year = xmlElementAttributeTryUtf8(book, "year", NULL);
        printChild(book, "title", "");
        printChild(book, "author", ", by ");
        printf(", %s\n", year);
        voMemFree(year);
    }
    voMemFree(lang);
}

int main(void) {
    voModuleStartup(xmlModule());
    XML_DOCUMENT *library = decodeFile("library.xml");
    XML_ELEMENT *root = xmlDocumentRoot(library);
    for (int64_t i = 0; (i = xmlElementFindChild(root, i, "book")) >= 0; i++) {
        XML_ELEMENT *book = xmlElementItemElementAt(root, i);
        printBook(book);
        xmlElementRelease(book);
    }
    xmlElementRelease(root);
    xmlDocumentRelease(library);
    voModuleShutdown(xmlModule());
    return 0;
}
