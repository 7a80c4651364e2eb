#include "../help.h"

/* The first character of a text that the character set lacks. */
static uint32_t firstLacking(voString *text, voCharset charset) {
    for (int64_t i = 0; i < voStringLength(text); i++) {
        uint32_t ch = voStringCharAt(text, i);
        voString *alone = voStringCreateFromCharsCopy(&ch, 1);
        voBuffer *bytes = voCharsetTryConvertStringToBufferWithFlags(charset, alone, 0);
        voStringRelease(alone);
        if (!bytes) return ch;
        voBufferRelease(bytes);
    }
    return 0;
}

static void tellWhy(XML_DOCUMENT *doc, voCharset charset) {
    XML_ELEMENT *root = xmlDocumentRoot(doc);
    voString *text = xmlElementTryContent(root);
    print(voCharsetToIanaName(charset));
    printf(" lacks a character of the text: U+%04lX\n", (unsigned long)firstLacking(text, charset));
    voStringRelease(text);
    xmlElementRelease(root);
}

static void writeIn(XML_DOCUMENT *doc, voCharset charset, XML_OPTIONS *options) {
    XML_DOCUMENT *copy = xmlDocumentRetain(doc); /* The caller's document stays as it is. */
    xmlDocumentSetCharset(&copy, charset);
    voBuffer *bytes = xmlDocumentTryEncode(copy, options);
    if (bytes) {
        printf("%lld bytes\n", (long long)voBufferLength(bytes));
        voBufferRelease(bytes);
    } else {
        tellWhy(doc, charset);
    }
    xmlDocumentRelease(copy);
}

int main(void) {
    voModuleStartup(xmlModule());
    XML_OPTIONS *options = xmlOptionsCreate();
    XML_DOCUMENT *cafe = decodeFile("cafe.xml");
    writeIn(cafe, VO_CHARSET_UTF_8, options);
    writeIn(cafe, VO_CHARSET_WINDOWS_1252, options);
    writeIn(cafe, VO_CHARSET_ISO_8859_1, options); /* Has no euro sign. */
    xmlDocumentRelease(cafe);
    xmlOptionsRelease(options);
    voModuleShutdown(xmlModule());
    return 0;
}
