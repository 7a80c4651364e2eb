#include "../help.h"

static void printSelected(XML_DOCUMENT *doc, XML_PATH *path) {
    XML_CURSOR *cursor = xmlCursorCreate(doc);
    XML_SELECTION *selection = xmlPathSelect(path, cursor);
    while (xmlSelectionNext(selection)) {
        XML_UTF8 text = xmlSelectionText(selection);
        printf("%.*s\n", (int)text.length, text.bytes);
    }
    xmlSelectionRelease(selection);
    xmlCursorRelease(cursor);
}

static XML_PATH *readPath(const char *expression) {
    XML_PATH_ERROR error;
    XML_PATH *path = xmlPathTryCreate(expression, -1, NULL, &error);
    if (!path) {
        print(voMessageToString(error.message));
        printf("\n");
        voMessageRelease(error.message);
    }
    return path;
}

int main(void) {
    voModuleStartup(xmlModule());
    XML_DOCUMENT *menu = decodeFile("menu.xml");
    XML_PATH *cheap = readPath("//dish[@price < 10]/name");
    printSelected(menu, cheap);
    xmlPathRelease(cheap);
    xmlDocumentRelease(menu);

    XML_PATH *wrong = readPath("//dish[@price <");
    if (wrong) xmlPathRelease(wrong);
    voModuleShutdown(xmlModule());
    return 0;
}
