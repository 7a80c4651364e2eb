#include "../help.h"
#include "xml/xml_import.h"

static void decodeStrictly(voBuffer *bytes, XML_OPTIONS *options) {
    XML_DECODE_RESULT *result = xmlDocumentDecode(bytes, options, NULL);
    XML_DECODE_ERROR *error = xmlDecodeResultError(result);
    if (error) {
        print(xmlDecodeErrorCodeMessageText(xmlDecodeErrorErrorCode(error)));
        printf("\n");
        xmlDecodeErrorRelease(error);
    }
    xmlDecodeResultRelease(result);
}

int main(void) { /* Links voxml-import. */
    voModuleStartup(xmlModule());
    int number;
    voBuffer *bytes = voFileTryRead("letter.xml", &number);
    if (!bytes) fail("letter.xml");
    XML_OPTIONS *options = xmlOptionsCreate();
    decodeStrictly(bytes, options);

    XML_IMPORT_ERROR error;
    XML_DOCUMENT *letter = xmlDocumentTryImport(bytes, NULL, NULL, &error);
    if (letter) {
        printBytes(xmlDocumentTryEncode(letter, options));
        xmlDocumentRelease(letter);
    } else {
        print(voMessageToString(error.message));
        voMessageRelease(error.message);
    }
    printf("\n");
    xmlOptionsRelease(options);
    voBufferRelease(bytes);
    voModuleShutdown(xmlModule());
    return 0;
}
