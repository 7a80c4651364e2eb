#include "../help.h"

/* Says at which place of the file a dish is not as it should be. */
static void check(XML_ELEMENT *dish) {
    char *price = xmlElementAttributeTryUtf8(dish, "price", NULL);
    if (!price || price[strspn(price, "0123456789")]) {
        voParserLocation *place = xmlElementLocation(dish);
        print(voParserLocationToString(place));
        printf(": %s\n", price ? "the price is no number" : "no price");
        voParserLocationRelease(place);
    }
    voMemFree(price);
}

static XML_DOCUMENT *decodeWithLocations(const char *path) {
    int error;
    XML_OPTIONS *options = xmlOptionsCreate();
    xmlOptionsSetFlags(&options, XML_FLAG_DECODE_LOCATION);
    XML_DECODE_RESULT *result = xmlDocumentTryDecodeFile(path, options, &error);
    XML_DOCUMENT *doc = result ? xmlDecodeResultDocument(result) : NULL;
    if (!doc) fail(path);
    xmlDecodeResultRelease(result);
    xmlOptionsRelease(options);
    return doc;
}

int main(void) {
    voModuleStartup(xmlModule());
    XML_DOCUMENT *menu = decodeWithLocations("menu.xml");
    XML_ELEMENT *root = xmlDocumentRoot(menu);
    for (int64_t i = 0; (i = xmlElementFindChild(root, i, "dish")) >= 0; i++) {
        XML_ELEMENT *dish = xmlElementItemElementAt(root, i);
        check(dish);
        xmlElementRelease(dish);
    }
    xmlElementRelease(root);
    xmlDocumentRelease(menu);
    voModuleShutdown(xmlModule());
    return 0;
}
