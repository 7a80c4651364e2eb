/* Makes a drawing of 1,000 circles from nothing: drawing FILE */
#include "report.h"

static void setAttribute(XML_ELEMENT **el, const char *name, const char *value) {
    voString *key = str(name), *text = str(value);
    xmlElementSetAttributeNameTextEscape(el, key, text);
    voStringRelease(key);
    voStringRelease(text);
}

static void setNumber(XML_ELEMENT **el, const char *name, int number) {
    char digits[16];
    snprintf(digits, sizeof digits, "%d", number);
    setAttribute(el, name, digits);
}

static XML_ELEMENT *create(const char *name) {
    voString *string = str(name);
    XML_ELEMENT *el = xmlElementCreate(string);
    voStringRelease(string);
    return el;
}

static void append(XML_ELEMENT **el, XML_ELEMENT *child) {
    xmlElementAppendItemElement(el, child);
    xmlElementRelease(child);
}

static XML_ELEMENT *circle(int i) {
    XML_ELEMENT *el = create("circle");
    setNumber(&el, "cx", i % 40 * 10 + 5);
    setNumber(&el, "cy", i / 40 * 10 + 5);
    setNumber(&el, "r", i % 5 + 1);
    return el;
}

static XML_ELEMENT *title(void) {
    XML_ELEMENT *el = create("title");
    voString *text = str("1,000 circles & no square");
    xmlElementAppendItemTextEscape(&el, text);
    voStringRelease(text);
    return el;
}

static int draw(const char *path) {
    XML_ELEMENT *svg = create("svg");
    setAttribute(&svg, "xmlns", "http://www.w3.org/2000/svg");
    setAttribute(&svg, "viewBox", "0 0 400 250");
    append(&svg, title());
    for (int i = 0; i < 1000; i++)
        append(&svg, circle(i));
    XML_DOCUMENT *doc = xmlDocumentCreate();
    xmlDocumentSetRoot(&doc, svg);
    int error = xmlDocumentEncodeFile(doc, path, NULL);
    if (error) reportFile(path, error);
    xmlDocumentRelease(doc);
    xmlElementRelease(svg);
    return error != 0;
}

int main(int argc, char **argv) {
    if (argc != 2) return 2;
    voModuleStartup(xmlModule());
    int status = draw(argv[1]);
    voModuleShutdown(xmlModule());
    return status;
}
