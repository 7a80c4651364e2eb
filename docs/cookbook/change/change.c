#include "../help.h"

typedef void Edit(XML_ELEMENT **el);

/* Takes the first child of that name out, changes it and puts it back: nothing is copied. */
static void editChild(XML_ELEMENT **parent, const char *name, Edit *edit) {
    int64_t index = xmlElementFindChild(*parent, 0, name);
    if (index < 0) return;
    XML_ELEMENT *child = xmlElementTakeItemElementAt(parent, index);
    edit(&child);
    xmlElementSetItemElementAt(parent, index, child);
    xmlElementRelease(child);
}

static void editWindow(XML_ELEMENT **window) { setAttribute(window, "width", "1024"); }

static void editName(XML_ELEMENT **name) {
    voString *text = str("Ann & Bo");
    xmlElementItemsClear(name);
    xmlElementAppendItemTextEscape(name, text);
    voStringRelease(text);
}

static void editUser(XML_ELEMENT **user) { editChild(user, "name", editName); }

int main(void) {
    voModuleStartup(xmlModule());
    XML_DOCUMENT *settings = decodeFile("settings.xml");
    XML_ELEMENT *root = xmlDocumentTakeRoot(&settings);
    editChild(&root, "window", editWindow);
    editChild(&root, "user", editUser);
    xmlDocumentSetRoot(&settings, root);
    xmlElementRelease(root);
    encodeFile(settings, "settings.xml"); /* The old file goes when the new one is whole. */
    xmlDocumentRelease(settings);

    int error;
    voBuffer *written = voFileTryRead("settings.xml", &error);
    if (!written) fail("settings.xml");
    printBytes(written);
    voModuleShutdown(xmlModule());
    return 0;
}
