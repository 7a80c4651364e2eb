/* Imports a document that the decoder would refuse. */
#include "xml/xml.h"
#include "xml/xml_import.h"

#include <stdio.h>

static const char text[] = "<!DOCTYPE a [<!ENTITY e 'f'>]><a>&e;</a>";

int main(void) {
    XML_IMPORT_ERROR error;
    voModuleStartup(xmlModule());
    voBuffer *xml = voBufferCreateFromBytesCopy(text, sizeof text - 1);
    XML_DOCUMENT *doc = xmlDocumentTryImport(xml, NULL, NULL, &error);
    voBufferRelease(xml);
    if (!doc) return 1;
    xmlDocumentRelease(doc);
    voModuleShutdown(xmlModule());
    return 0;
}
