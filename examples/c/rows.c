/* Writes the cells of every row of a table as comma-separated values, through a cursor:
 * rows FILE */
#include "report.h"

static void printCell(XML_UTF8 cell) {
    int plain = 1;
    for (int64_t i = 0; i < cell.length; i++)
        plain &= !strchr(",\"\n", cell.bytes[i]) || cell.bytes[i] == '\0';
    if (plain) {
        fwrite(cell.bytes, 1, (size_t)cell.length, stdout);
        return;
    }
    putchar('"');
    for (int64_t i = 0; i < cell.length; i++) {
        if (cell.bytes[i] == '"') putchar('"');
        putchar(cell.bytes[i]);
    }
    putchar('"');
}

static void printId(XML_CURSOR *row) {
    for (int found = xmlCursorFirstAttribute(row); found; found = xmlCursorNext(row)) {
        XML_UTF8 name = xmlCursorName(row);
        int isId = name.length == 2 && memcmp(name.bytes, "id", 2) == 0;
        if (isId) printCell(xmlCursorValueTryUnescape(row));
    }
    if (xmlCursorType(row) == XML_CURSOR_TYPE_ATTRIBUTE) xmlCursorParent(row);
}

/* The tables of this example hold one text in a cell. */
static void printCells(XML_CURSOR *row) {
    if (!xmlCursorFirstChild(row)) return;
    do {
        if (xmlCursorType(row) != XML_ITEM_TYPE_ELEMENT) continue;
        putchar(',');
        if (!xmlCursorFirstChild(row)) continue;
        printCell(xmlCursorValueTryUnescape(row));
        xmlCursorParent(row);
    } while (xmlCursorNext(row));
    xmlCursorParent(row);
}

static void printRows(XML_CURSOR *cursor) {
    int found = xmlCursorFirstChild(cursor);
    while (found && xmlCursorType(cursor) != XML_ITEM_TYPE_ELEMENT)
        found = xmlCursorNext(cursor);
    if (!found || !xmlCursorFirstChild(cursor)) return;
    do {
        if (xmlCursorType(cursor) != XML_ITEM_TYPE_ELEMENT) continue;
        printId(cursor);
        printCells(cursor);
        putchar('\n');
    } while (xmlCursorNext(cursor));
}

int main(int argc, char **argv) {
    if (argc != 2) return 2;
    voModuleStartup(xmlModule());
    XML_DOCUMENT *table = decodeFile(argv[1]);
    if (table) {
        XML_CURSOR *cursor = xmlCursorCreate(table);
        printRows(cursor);
        xmlCursorRelease(cursor);
        xmlDocumentRelease(table);
    }
    voModuleShutdown(xmlModule());
    return table == NULL;
}
