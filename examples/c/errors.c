/* Says of every file whether it is well-formed, or what is wrong, where and how to mend it:
 * errors FILE... */
#include "report.h"

static void describe(XML_DECODE_ERROR *error, voBuffer *xml) {
    printMessage(stdout, xmlDecodeErrorToMessage(error));
    printf(" (byte %lld)\n", (long long)xmlDecodeErrorByteOffset(error, xml));
    voString *hint = xmlDecodeErrorTryHint(error, xml);
    if (!hint) return;
    fputs("  hint: ", stdout);
    print(stdout, hint);
    putchar('\n');
}

/* Whether the file was refused. */
static int check(const char *path) {
    int error = 0;
    voBuffer *xml = voFileTryRead(path, &error);
    XML_DECODE_RESULT *result = xml ? xmlDocumentTryDecodeFile(path, NULL, &error) : NULL;
    if (error) reportFile(path, error);
    XML_DECODE_ERROR *refusal = result ? xmlDecodeResultError(result) : NULL;
    if (refusal) {
        describe(refusal, xml);
        xmlDecodeErrorRelease(refusal);
    }
    if (result) xmlDecodeResultRelease(result);
    if (xml) voBufferRelease(xml);
    return !result || refusal;
}

int main(int argc, char **argv) {
    int refused = 0;
    voModuleStartup(xmlModule());
    for (int i = 1; i < argc; i++)
        refused += check(argv[i]);
    printf("%d of %d refused\n", refused, argc - 1);
    voModuleShutdown(xmlModule());
    return refused != 0;
}
