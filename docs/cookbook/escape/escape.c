#include "../help.h"

static void printText(XML_ELEMENT *el) {
    printf("escaped: ");
    print(xmlElementItemTextValueAt(el, 0));
    printf("\nplain:   ");
    voString *plain = xmlElementItemTextTryUnescapeAt(el, 0);
    if (plain)
        print(plain);
    else
        printf("none, since it refers to an entity that is not predefined");
    printf("\n");
}

int main(void) {
    voModuleStartup(xmlModule());
    XML_DOCUMENT *note = decodeFile("note.xml");
    XML_ELEMENT *root = xmlDocumentRoot(note);
    printText(root);

    voString *plain = str("1 < 2 & 3 > 2"), *escaped = str("&lt;b&gt; as it stands");
    xmlElementSetItemTextEscapeAt(&root, 0, plain); /* What must be escaped is. */
    printText(root);
    xmlElementSetItemTextValueAt(&root, 0, escaped);
    printText(root);
    voString *wrong = str("a bare & sign"); /* Ends the process where an escaped text is meant. */
    if (!xmlValueTextOk(wrong)) printf("refused: a raw < or & in escaped text\n");
    voStringRelease(wrong);

    voStringRelease(escaped);
    voStringRelease(plain);
    xmlElementRelease(root);
    xmlDocumentRelease(note);
    voModuleShutdown(xmlModule());
    return 0;
}
