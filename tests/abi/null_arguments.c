/* Makes the calls that null_arguments.py has generated and prints a line about how each ended:
 * null_arguments NUMBER_OF_CALLS. An abort is left by a jump, so that one process makes them all.
 */
#define _POSIX_C_SOURCE 200809L
#include "vo/vo.h"
#include "xml/xml.h"
#include "xml/xml_import.h"

#include <setjmp.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

static voString *str(const char *utf8) { return voStringTryCreateFromUtf8(utf8, -1); }

static voVector *vector(void) {
    voVector *vec = voVectorCreate();
    voVectorAppendObj(&vec, (voObj *)str("a"));
    return vec;
}

static voDict *dict(void) {
    voDict *dict = voDictCreate();
    voDictSetStringKey(&dict, str("a"), (voObj *)str("b"));
    return dict;
}

static voStore *store(void) {
    voStore *store = voStoreCreate();
    voStoreSetStoreCstr(&store, "a", -1, voStoreCreate());
    return store;
}

static XML_ELEMENT *element(void) {
    XML_ELEMENT *el = xmlElementCreate(str("a"));
    xmlElementSetAttributeNameTextValue(&el, str("a"), str("b"));
    xmlElementAppendItemTextValue(&el, str("b"));
    return el;
}

static XML_NS_ELEMENT *nsElement(void) {
    XML_NS_ELEMENT *el = xmlNsElementCreate(str("a"), NULL);
    xmlNsElementSetAttributeNameTextValue(&el, str("a"), NULL, str("b"));
    xmlNsElementAppendItemTextValue(&el, str("b"));
    return el;
}

static XML_NS_NAMESPACE_MAP *map(void) {
    XML_NS_NAMESPACE_MAP *map = xmlNsNamespaceMapCreate();
    xmlNsNamespaceMapAppendMapping(&map, xmlNsNamespaceMappingCreate());
    return map;
}

static XML_SELECTION *selection(void) {
    XML_PATH *path = xmlPathTryCreate("@a", -1, NULL, NULL);
    XML_SELECTION *selection = xmlPathSelect(path, xmlCursorCreateElement(element()));
    (void)xmlSelectionNext(selection);
    return selection;
}

static XML_EDIT *edit(void) {
    static XML_EDIT edit;
    edit.action = XML_EDIT_ACTION_DELETE;
    edit.path = xmlPathTryCreate("a", -1, NULL, NULL);
    return &edit;
}

/* A valid object of each type. */
#define NEW_char "a"
#define NEW_int ((int[1]){0})
#define NEW_int64_t ((int64_t[1]){0})
#define NEW_uint32_t voMemAllocN(1, 4)
#define NEW_void voMemAllocN(1, 8)
#define NEW_voBuffer voBufferCreateFromBytesCopy("ab", 2)
#define NEW_voDict dict()
#define NEW_voEnum voEnumCreate()
#define NEW_voFlagset voFlagsetCreate()
#define NEW_voMessage voMessageCreateFormatCstr(1, NULL, "a", -1)
#define NEW_voModule xmlModule()
#define NEW_voObj ((voObj *)str("a"))
#define NEW_voParserLocation voParserLocationCreate(NULL, 0, 1, 1)
#define NEW_voParserLocationMap voParserLocationMapCreate(NULL, 0, NEW_uint32_t, 1)
#define NEW_voSort voStringSort()
#define NEW_voStore store()
#define NEW_voString str("a")
#define NEW_voVector vector()
#define NEW_XML_ATTRIBUTE xmlAttributeCreate(str("a"))
#define NEW_XML_ATTRIBUTES xmlElementAttributes(element())
#define NEW_XML_CDATA xmlCdataCreate(str("a"))
#define NEW_XML_COMMENT xmlCommentCreate(str("a"))
#define NEW_XML_CURSOR xmlCursorCreateElement(element())
#define NEW_XML_DECODE_ERROR xmlDecodeErrorCreate(0, NULL)
#define NEW_XML_DECODE_RESULT xmlDecodeResultCreate(xmlDocumentCreate())
#define NEW_XML_DOCUMENT xmlDocumentCreate()
#define NEW_XML_EDIT edit()
#define NEW_XML_EDIT_ERROR ((XML_EDIT_ERROR[1]){{0}})
#define NEW_XML_ELEMENT element()
#define NEW_XML_IMPORT_ERROR ((XML_IMPORT_ERROR[1]){{0}})
#define NEW_XML_IMPORT_OPTIONS ((XML_IMPORT_OPTIONS[1]){{0}})
#define NEW_XML_ITEM xmlItemCreateElement(element())
#define NEW_XML_ITEMS xmlElementItems(element())
#define NEW_XML_LAYOUT ((XML_LAYOUT[1]){{2, 0}})
#define NEW_XML_NS_ATTRIBUTE xmlNsAttributeCreate(str("a"), NULL)
#define NEW_XML_NS_ATTRIBUTES xmlNsElementAttributes(nsElement())
#define NEW_XML_NS_DECODE_ERROR xmlNsDecodeErrorCreate(0, NULL)
#define NEW_XML_NS_DECODE_RESULT xmlNsDecodeResultCreate(xmlNsDocumentCreate())
#define NEW_XML_NS_DOCUMENT xmlNsDocumentCreate()
#define NEW_XML_NS_ELEMENT nsElement()
#define NEW_XML_NS_ITEM xmlNsItemCreateElement(nsElement())
#define NEW_XML_NS_ITEMS xmlNsElementItems(nsElement())
#define NEW_XML_NS_NAMESPACE_MAP map()
#define NEW_XML_NS_NAMESPACE_MAPPING xmlNsNamespaceMappingCreate()
#define NEW_XML_OPTIONS xmlOptionsCreate()
#define NEW_XML_PATH xmlPathTryCreate("a", -1, NULL, NULL)
#define NEW_XML_PATH_ERROR ((XML_PATH_ERROR[1]){{0}})
#define NEW_XML_PROCESSING_INSTRUCTION xmlProcessingInstructionCreate(str("a"))
#define NEW_XML_SELECTION selection()
#define NEW_XML_TEXT xmlTextCreate()

static void call(long number) {
    switch (number) {
#include "calls.inc"
    }
}

static sigjmp_buf afterwards;

static void leave(int signal) { siglongjmp(afterwards, signal); }

/* Runs a call with its standard error in an empty file. */
static void try(long number, int errors) {
    char text[1000];
    if (ftruncate(errors, 0) || lseek(errors, 0, SEEK_SET)) exit(1);
    const int signal = sigsetjmp(afterwards, 1);
    if (signal == 0) {
        call(number);
        puts("returned");
        return;
    }
    const ssize_t length = pread(errors, text, sizeof text, 0);
    if (signal == SIGABRT && length > 0 && text[length - 1] == '\n')
        printf("aborted: %.*s", (int)length, text);
    else
        printf("ended by signal %d\n", signal);
}

int main(int argc, char **argv) {
    FILE *file = tmpfile();
    if (!file) return 1;
    const int errors = fileno(file);
    if (dup2(errors, STDERR_FILENO) < 0) return 1;
    const int signals[] = {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGILL};
    for (unsigned i = 0; i < sizeof signals / sizeof *signals; i++)
        sigaction(signals[i], &(struct sigaction){.sa_handler = leave}, NULL);
    setvbuf(stdout, NULL, _IOFBF, 1 << 20);
    voModuleStartup(xmlModule());
    const long count = argc > 1 ? strtol(argv[1], NULL, 10) : 0;
    for (long number = 0; number < count; number++)
        try(number, errors);
    return fflush(stdout) != 0;
}
