/* What these programs share: saying what went wrong. */
#ifndef EXAMPLES_REPORT_H
#define EXAMPLES_REPORT_H

#include "vo/vo.h"
#include "xml/xml.h"

#include <stdio.h>
#include <string.h>

/* Prints a string and gives up the reference to it. */
static inline void print(FILE *out, voString *string) {
    voBuffer *utf8 = voStringTryToUtf8(string);
    if (utf8) fwrite(voBufferBacking(utf8), 1, (size_t)voBufferLength(utf8), out);
    if (utf8) voBufferRelease(utf8);
    voStringRelease(string);
}

static inline void reportFile(const char *path, int error) {
    fprintf(stderr, "%s: %s\n", path,
            error == XML_FILE_ERROR_CHARSET ? "character set too small" : strerror(error));
}

static inline void printMessage(FILE *out, voMessage *message) {
    print(out, voMessageToString(message));
    voMessageRelease(message);
}

/* The document in a file, or null after saying why there is none. */
static inline XML_DOCUMENT *decodeFile(const char *path) {
    int error = 0;
    XML_DECODE_RESULT *result = xmlDocumentTryDecodeFile(path, NULL, &error);
    if (!result) return reportFile(path, error), NULL;
    XML_DOCUMENT *doc = xmlDecodeResultDocument(result);
    if (!doc) {
        XML_DECODE_ERROR *refusal = xmlDecodeResultError(result);
        printMessage(stderr, xmlDecodeErrorToMessage(refusal));
        fputc('\n', stderr);
        xmlDecodeErrorRelease(refusal);
    }
    xmlDecodeResultRelease(result);
    return doc;
}

/* The string of UTF-8 that is known to be well-formed. */
static inline voString *str(const char *utf8) { return voStringTryCreateFromUtf8(utf8, -1); }

#endif
