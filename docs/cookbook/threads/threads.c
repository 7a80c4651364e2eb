#include "../help.h"

#include <pthread.h>

struct task {
    XML_DOCUMENT *orders; /* The thread's own reference to the document that all share. */
    int percent;
};

static void raiseSum(XML_ELEMENT **order, int percent) {
    char digits[32], *sum = xmlElementAttributeTryUtf8(*order, "sum", NULL);
    snprintf(digits, sizeof digits, "%ld", strtol(sum, NULL, 10) * (100 + percent) / 100);
    setAttribute(order, "sum", digits);
    voMemFree(sum);
}

/* Derives a document of its own from the shared one. No lock is needed. */
static void *derive(void *data) {
    struct task *task = data;
    XML_ELEMENT *root = xmlDocumentTakeRoot(&task->orders);
    for (int64_t i = 0; (i = xmlElementFindChild(root, i, "order")) >= 0; i++) {
        XML_ELEMENT *order = xmlElementTakeItemElementAt(&root, i);
        raiseSum(&order, task->percent);
        xmlElementSetItemElementAt(&root, i, order);
        xmlElementRelease(order);
    }
    xmlDocumentSetRoot(&task->orders, root);
    xmlElementRelease(root);
    return NULL;
}

int main(void) {
    struct task tasks[3];
    pthread_t threads[3];
    voModuleStartup(xmlModule());
    XML_DOCUMENT *orders = decodeFile("orders.xml");
    for (int i = 0; i < 3; i++) {
        tasks[i] = (struct task){xmlDocumentRetain(orders), 20 * i};
        if (pthread_create(&threads[i], NULL, derive, &tasks[i])) fail("no thread");
    }
    for (int i = 0; i < 3; i++) {
        pthread_join(threads[i], NULL);
        XML_ELEMENT *root = xmlDocumentRoot(tasks[i].orders);
        printBytes(xmlElementTryEncode(root, VO_CHARSET_UTF_8));
        printf("\n");
        xmlElementRelease(root);
        xmlDocumentRelease(tasks[i].orders);
    }
    xmlDocumentRelease(orders);
    voModuleShutdown(xmlModule());
    return 0;
}
