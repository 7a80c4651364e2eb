#include "../help.h"

static int isDone(XML_ITEM *item) {
    XML_ELEMENT *task = xmlItemElement(item);
    if (!task) return 0;
    char *state = xmlElementAttributeTryUtf8(task, "state", NULL);
    int done = state && strcmp(state, "done") == 0;
    voMemFree(state);
    xmlElementRelease(task);
    return done;
}

/* Keeps the others in a new list: removing one by one would take time for each that follows. */
static void removeDone(XML_ELEMENT **root) {
    XML_ITEMS *kept = xmlItemsCreate();
    int64_t length = xmlElementItemsLength(*root);
    for (int64_t i = 0; i < length; i++) {
        XML_ITEM *item = xmlElementItemAt(*root, i);
        if (!isDone(item)) xmlItemsAppendItem(&kept, item);
        xmlItemRelease(item);
    }
    printf("%lld removed\n", (long long)(length - xmlItemsLength(kept)));
    xmlElementSetItems(root, kept);
    xmlItemsRelease(kept);
}

int main(void) {
    voModuleStartup(xmlModule());
    XML_DOCUMENT *tasks = decodeFile("tasks.xml");
    XML_ELEMENT *root = xmlDocumentTakeRoot(&tasks);
    removeDone(&root);
    xmlDocumentSetRoot(&tasks, root);
    printBytes(xmlElementTryEncode(root, VO_CHARSET_UTF_8));
    printf("\n");
    xmlElementRelease(root);
    xmlDocumentRelease(tasks);
    voModuleShutdown(xmlModule());
    return 0;
}
