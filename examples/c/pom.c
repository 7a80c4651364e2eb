/* Sets the version of a dependency in a Maven project, in place: pom FILE ARTIFACT VERSION */
#include "report.h"

typedef void Edit(XML_ELEMENT **el, char **argv);

/* Takes every child of that name out, changes it and puts it back: nothing is copied. */
static void editChildren(XML_ELEMENT **el, const char *name, Edit *edit, char **argv) {
    for (int64_t i = 0; (i = xmlElementFindChild(*el, i, name)) >= 0; i++) {
        XML_ELEMENT *child = xmlElementTakeItemElementAt(el, i);
        edit(&child, argv);
        xmlElementSetItemElementAt(el, i, child);
        xmlElementRelease(child);
    }
}

static void setVersion(XML_ELEMENT **version, char **argv) {
    voString *text = str(argv[3]);
    xmlElementItemsClear(version);
    xmlElementInsertItemTextEscape(version, 0, text);
    voStringRelease(text);
}

static void editDependency(XML_ELEMENT **dependency, char **argv) {
    XML_ELEMENT *artifact = xmlElementChild(*dependency, "artifactId");
    char *name = artifact ? xmlElementTryContentUtf8(artifact, NULL) : NULL;
    if (name && strcmp(name, argv[2]) == 0) editChildren(dependency, "version", setVersion, argv);
    voMemFree(name);
    if (artifact) xmlElementRelease(artifact);
}

static void editDependencies(XML_ELEMENT **dependencies, char **argv) {
    editChildren(dependencies, "dependency", editDependency, argv);
}

static int run(char **argv) {
    XML_DOCUMENT *pom = decodeFile(argv[1]);
    if (!pom) return 1;
    XML_ELEMENT *project = xmlDocumentTakeRoot(&pom);
    if (project) {
        editChildren(&project, "dependencies", editDependencies, argv);
        xmlDocumentSetRoot(&pom, project);
        xmlElementRelease(project);
    }
    int error = xmlDocumentEncodeFile(pom, argv[1], NULL);
    if (error) reportFile(argv[1], error);
    xmlDocumentRelease(pom);
    return error != 0;
}

int main(int argc, char **argv) {
    if (argc != 4) return 2;
    voString *version = voStringTryCreateFromUtf8(argv[3], -1);
    if (!version) return 2;
    voStringRelease(version);
    voModuleStartup(xmlModule());
    int status = run(argv);
    voModuleShutdown(xmlModule());
    return status;
}
