#include "xml/xml_module.h"

#include "source/vo/vo_layout.hpp"
#include "source/vo/vo_module.hpp"
#include "source/xml/base/xml_module.hpp"
#include "xml/xml_ns_builtin_namespaces.h"

#include "version.hpp"

#define PRODUCT_NAME "voxml"
#define MODULE_NAME "xml"
#define MODULE_VERSION "1.0"

constinit const xml::ModuleRecord xml___module_record = {
    .format = 2,
    .productName = PRODUCT_NAME,
    .productFullName = "voxml XML library",
    .productMajor = VOXML_VERSION_MAJOR,
    .productMinor = VOXML_VERSION_MINOR,
    .productPatch = VOXML_VERSION_PATCH,
    .buildTime = VOXML_BUILD_TIME,
    .vendor = "voxml developers",
    .legalNotice = "Copyright (c) voxml developers",
    .name = MODULE_NAME,
    .description = "Extensible Markup Language",
    .version = MODULE_VERSION,
    .requiredModules = "vo",
    .furtherModules = "",
};

constinit const char *const xml___module_version_string =
    "###BUILD### " PRODUCT_NAME "-" VOXML_VERSION_TEXT " (" VOXML_SYSTEM ", " VOXML_PROCESSOR
    ", " VOXML_BUILD_TYPE "), " MODULE_NAME " " MODULE_VERSION;

constinit voModule xml___module = {
    .base = {nullptr, 1},
    .record = const_cast<xml::ModuleRecord *>(&xml___module_record),
    .startup = xml___ModuleStartup,
    .reserved = nullptr,
    .shutdown = xml___ModuleShutdown,
    .furtherReserved = {},
    .users = 0,
};

// Programs come here before the runtime reads the module object or anything else of this library.
voModule *xmlModule(void) {
    VO_ASSERT_IN("libvo and libvoxml are not of the same build", vo___Layout() == vo::layout);
    return &xml___module;
}

int64_t voxmlVersion(void) { return VOXML_VERSION; }

int xml___ModuleStartup(void) {
    xml___FlagsStartup();
    xml___ItemTypeStartup();
    xml___DecodeErrorCodeStartup();
    xml___NsDecodeErrorCodeStartup();
    xml___NsBuiltinNamespacesStartup();
    xml___TakenItemsStartup();
    return 1;
}

void xml___ModuleShutdown(void) {
    xml___TakenItemsShutdown();
    xml___NsBuiltinNamespacesShutdown();
    xml___NsDecodeErrorCodeShutdown();
    xml___DecodeErrorCodeShutdown();
    xml___ItemTypeShutdown();
    xml___FlagsShutdown();
}
