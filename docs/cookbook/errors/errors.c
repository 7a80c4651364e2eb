#include "../help.h"

/* A location comes with every error of a file; hints need the bytes. */
static void describe(XML_DECODE_ERROR *error, const char *path) {
    int unread;
    voBuffer *xml = voFileTryRead(path, &unread);
    voMessage *message = xmlDecodeErrorToMessage(error);
    print(voMessageToString(message));
    printf("\n  byte %lld\n", (long long)xmlDecodeErrorByteOffset(error, xml));
    voString *hint = xmlDecodeErrorTryHint(error, xml);
    if (hint) {
        printf("  hint: ");
        print(hint);
        printf("\n");
    }
    voMessageRelease(message);
    voBufferRelease(xml);
}

static void tell(const char *path) {
    int number;
    XML_DECODE_RESULT *result = xmlDocumentTryDecodeFile(path, NULL, &number);
    if (!result) {
        printf("%s: error: ", path);
        print(voFileErrorText(number));
        printf("\n");
        return;
    }
    XML_DECODE_ERROR *error = xmlDecodeResultError(result);
    if (error) {
        describe(error, path);
        xmlDecodeErrorRelease(error);
    } else {
        printf("%s: all is well\n", path);
    }
    xmlDecodeResultRelease(result);
}

int main(void) {
    voModuleStartup(xmlModule());
    tell("menu.xml");
    tell("nowhere.xml");
    voModuleShutdown(xmlModule());
    return 0;
}
