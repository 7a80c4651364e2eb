#include "../help.h"

static const struct { const char *name, *price; } rows[] = {{"Soup", "4"}, {"Fish & chips", "9"}};

static void appendDishes(XML_ELEMENT **menu) {
    for (size_t i = 0; i < sizeof rows / sizeof rows[0]; i++) {
        XML_ELEMENT *dish = createElement("dish", rows[i].name);
        setAttribute(&dish, "price", rows[i].price);
        append(menu, dish);
    }
}

static void appendComment(XML_ELEMENT **menu, const char *text) {
    voString *value = str(text);
    XML_COMMENT *comment = xmlCommentCreate(value);
    xmlElementAppendItemComment(menu, comment);
    xmlCommentRelease(comment);
    voStringRelease(value);
}

int main(void) {
    voModuleStartup(xmlModule());
    XML_ELEMENT *menu = createElement("menu", NULL);
    setAttribute(&menu, "day", "Monday");
    appendComment(&menu, " today ");
    appendDishes(&menu);
    append(&menu, createElement("end", NULL));

    XML_DOCUMENT *doc = xmlDocumentCreate();
    xmlDocumentSetRoot(&doc, menu);
    XML_OPTIONS *defaults = xmlOptionsCreate();
    printBytes(xmlDocumentTryEncode(doc, defaults));
    printf("\n");

    xmlOptionsRelease(defaults);
    xmlDocumentRelease(doc);
    xmlElementRelease(menu);
    voModuleShutdown(xmlModule());
    return 0;
}
