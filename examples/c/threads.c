/* Four threads derive a document each from one that they share: threads */
#include "report.h"

#include <pthread.h>

static const char text[] = "<?xml version='1.0'?><order><state>new</state></order>";

struct task {
    XML_DOCUMENT *order; /* The thread's own reference to the shared document. */
    char state[20];
};

static void setState(XML_ELEMENT **root, const char *state) {
    voString *string = str(state);
    int64_t index = xmlElementFindChild(*root, 0, "state");
    XML_ELEMENT *child = xmlElementTakeItemElementAt(root, index);
    xmlElementItemsClear(&child);
    xmlElementAppendItemTextEscape(&child, string);
    xmlElementSetItemElementAt(root, index, child);
    xmlElementRelease(child);
    voStringRelease(string);
}

static void *derive(void *data) {
    struct task *task = data;
    XML_ELEMENT *root = xmlDocumentTakeRoot(&task->order);
    setState(&root, task->state);
    xmlDocumentSetRoot(&task->order, root);
    xmlElementRelease(root);
    return NULL;
}

static void printState(XML_DOCUMENT *order) {
    XML_ELEMENT *root = xmlDocumentRoot(order);
    char *state = xmlElementTryContentUtf8(root, NULL);
    puts(state);
    voMemFree(state);
    xmlElementRelease(root);
}

static int deriveFour(XML_DOCUMENT *order) {
    struct task tasks[4];
    pthread_t threads[4];
    int started = 0;
    for (; started < 4; started++) {
        tasks[started].order = xmlDocumentRetain(order);
        snprintf(tasks[started].state, sizeof tasks[started].state, "seen by %d", started);
        if (pthread_create(&threads[started], NULL, derive, &tasks[started])) break;
    }
    for (int i = 0; i < started; i++)
        pthread_join(threads[i], NULL);
    if (started < 4) xmlDocumentRelease(tasks[started].order);
    for (int i = 0; i < started; i++) {
        printState(tasks[i].order);
        xmlDocumentRelease(tasks[i].order);
    }
    printState(order);
    return started < 4;
}

int main(void) {
    voModuleStartup(xmlModule());
    voBuffer *xml = voBufferCreateFromBytesCopy(text, sizeof text - 1);
    XML_OPTIONS *options = xmlOptionsCreate();
    XML_DECODE_RESULT *result = xmlDocumentDecode(xml, options, NULL);
    XML_DOCUMENT *order = xmlDecodeResultDocument(result);
    xmlDecodeResultRelease(result);
    int status = deriveFour(order);
    xmlDocumentRelease(order);
    xmlOptionsRelease(options);
    voBufferRelease(xml);
    voModuleShutdown(xmlModule());
    return status;
}
