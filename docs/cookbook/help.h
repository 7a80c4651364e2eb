/* What the recipes in C share. */
#ifndef COOKBOOK_HELP_H
#define COOKBOOK_HELP_H

#include "vo/vo.h"
#include "xml/xml.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

/* The string of UTF-8 that is known to be well-formed. */
static inline voString *str(const char *utf8) { return voStringTryCreateFromUtf8(utf8, -1); }

/* Prints a string or bytes and gives up the reference. */
static inline void printBytes(voBuffer *bytes) {
    fwrite(voBufferBacking(bytes), 1, (size_t)voBufferLength(bytes), stdout);
    voBufferRelease(bytes);
}
static inline void print(voString *string) {
    voBuffer *utf8 = voStringTryToUtf8(string);
    if (utf8) printBytes(utf8);
    voStringRelease(string);
}

/* Ends the program where a recipe could not go on. */
static inline void fail(const char *what) {
    fprintf(stderr, "%s\n", what);
    exit(1);
}

/* The document in a file. The error recipe shows how to say what is wrong with one. */
static inline XML_DOCUMENT *decodeFile(const char *path) {
    int error = 0;
    XML_DECODE_RESULT *result = xmlDocumentTryDecodeFile(path, NULL, &error);
    if (!result) fail(path);
    XML_DOCUMENT *doc = xmlDecodeResultDocument(result);
    xmlDecodeResultRelease(result);
    if (!doc) fail(path);
    return doc;
}

static inline void encodeFile(XML_DOCUMENT *doc, const char *path) {
    if (xmlDocumentEncodeFile(doc, path, NULL)) fail(path);
}

/* Gives an element an attribute with a value of plain characters. */
static inline void setAttribute(XML_ELEMENT **el, const char *name, const char *value) {
    voString *key = str(name), *text = str(value);
    xmlElementSetAttributeNameTextEscape(el, key, text);
    voStringRelease(key);
    voStringRelease(text);
}

/* A new element with a text, which may be null. */
static inline XML_ELEMENT *createElement(const char *name, const char *optionalText) {
    voString *key = str(name);
    XML_ELEMENT *el = xmlElementCreate(key);
    voStringRelease(key);
    if (!optionalText) return el;
    voString *text = str(optionalText);
    xmlElementAppendItemTextEscape(&el, text);
    voStringRelease(text);
    return el;
}

/* Appends a child and gives up the reference to it. */
static inline void append(XML_ELEMENT **el, XML_ELEMENT *child) {
    xmlElementAppendItemElement(el, child);
    xmlElementRelease(child);
}

#endif
