#include "../help.h"

static void printUtf8(XML_UTF8 text) { fwrite(text.bytes, 1, (size_t)text.length, stdout); }

static void printAttributes(XML_CURSOR *node) {
    if (!xmlCursorFirstAttribute(node)) return;
    do {
        printf(" ");
        printUtf8(xmlCursorName(node));
        printf("=");
        printUtf8(xmlCursorValueTryUnescape(node));
    } while (xmlCursorNext(node));
    xmlCursorParent(node);
}

static int printNode(XML_CURSOR *node, int depth) {
    XML_ITEM_TYPE type = xmlCursorType(node);
    if (type == XML_ITEM_TYPE_COMMENT) {
        printf("%*scomment", depth * 2, "");
        printUtf8(xmlCursorValue(node));
        printf("\n");
    }
    if (type != XML_ITEM_TYPE_ELEMENT) return 0;
    printf("%*s", depth * 2, "");
    printUtf8(xmlCursorName(node));
    printAttributes(node);
    printf("\n");
    return 1;
}

/* Every node below the one that the cursor stands on, without recursion; the number of elements. */
static int walk(XML_CURSOR *node) {
    int elements = 0, depth = 0, found = xmlCursorFirstChild(node);
    while (found) {
        elements += printNode(node, depth);
        if (xmlCursorFirstChild(node)) {
            depth++;
            continue;
        }
        while (!(found = xmlCursorNext(node)) && depth > 0) {
            xmlCursorParent(node);
            depth--;
        }
    }
    return elements;
}

int main(void) {
    voModuleStartup(xmlModule());
    XML_DOCUMENT *page = decodeFile("page.xml");
    XML_CURSOR *cursor = xmlCursorCreate(page);
    int elements = walk(cursor);
    printf("%d elements\n", elements);
    xmlCursorRelease(cursor);
    xmlDocumentRelease(page);
    voModuleShutdown(xmlModule());
    return 0;
}
