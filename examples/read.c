/* Prints the name of the root element and its attribute "name", or where the document is wrong. */
#include "vo/vo.h"
#include "xml/xml.h"

#include <stdio.h>
#include <string.h>

/* Prints a string and gives up the reference to it. */
static void print(voString *string) {
    voBuffer *utf8 = voStringTryToUtf8(string);
    printf("%.*s\n", (int)voBufferLength(utf8), (const char *)voBufferBacking(utf8));
    voBufferRelease(utf8);
    voStringRelease(string);
}

static void printRoot(XML_DOCUMENT *doc) {
    XML_ELEMENT *root = xmlDocumentRoot(doc);
    if (!root) return;
    print(xmlElementName(root));
    char *name = xmlElementAttributeTryUtf8(root, "name", NULL);
    if (name) puts(name);
    voMemFree(name);
    xmlElementRelease(root);
}

static void printError(XML_DECODE_ERROR *error) {
    voMessage *message = xmlDecodeErrorToMessage(error);
    print(voMessageToString(message)); /* a.xml:12:3: error: mismatched opening/closing XML tags */
    voMessageRelease(message);
    xmlDecodeErrorRelease(error);
}

static int run(const char *path) {
    int error;
    XML_DECODE_RESULT *result = xmlDocumentTryDecodeFile(path, NULL, &error);
    if (!result) return fprintf(stderr, "%s: %s\n", path, strerror(error)), 1;
    XML_DOCUMENT *doc = xmlDecodeResultDocument(result);
    if (doc) {
        printRoot(doc);
        xmlDocumentRelease(doc);
    } else {
        printError(xmlDecodeResultError(result));
    }
    xmlDecodeResultRelease(result);
    return !doc;
}

int main(int argc, char **argv) {
    if (argc < 2) return 2;
    voModuleStartup(xmlModule());
    int status = run(argv[1]);
    voModuleShutdown(xmlModule());
    return status;
}
