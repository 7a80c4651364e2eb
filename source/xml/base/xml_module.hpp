// The module object and the registries that live from its start-up to its shut-down.
#pragma once

#include "xml/xml_module.h"

namespace xml {

/// What the runtime can tell about a module and the product it belongs to. Every member is 64 bits
/// wide.
struct ModuleRecord {
    int64_t format;
    const char *productName;
    const char *productFullName;
    int64_t productMajor;
    int64_t productMinor;
    int64_t productPatch;
    const char *buildTime; ///< "UTC 2024-02-29 12:30:00 (Thursday)"
    const char *vendor;
    const char *legalNotice;
    const char *name;
    const char *description;
    const char *version;
    const char *requiredModules;
    const char *furtherModules;
};
static_assert(sizeof(ModuleRecord) == 14 * sizeof(int64_t));

} // namespace xml

extern "C" {

extern voModule xml___module;
extern const xml::ModuleRecord xml___module_record;

/// One line that identifies the build.
extern const char *const xml___module_version_string;

/// Called by the runtime for the first user of the module; gives 1.
int xml___ModuleStartup(void);
/// Called by the runtime when the last user has gone.
void xml___ModuleShutdown(void);

// The registries are written by the functions below only, which the module calls, so any thread
// may read them without a lock. Shutting down makes each an all-ones pointer, so that a use after
// it is caught.

extern voFlagset *xml___FlagsFlagset;
void xml___FlagsStartup(void);
void xml___FlagsShutdown(void);

extern voEnum *xml___ItemTypeEnum;
void xml___ItemTypeStartup(void);
void xml___ItemTypeShutdown(void);

extern voEnum *xml___DecodeErrorCodeEnum;
void xml___DecodeErrorCodeStartup(void);
void xml___DecodeErrorCodeShutdown(void);

extern voEnum *xml___NsDecodeErrorCodeEnum;
void xml___NsDecodeErrorCodeStartup(void);
void xml___NsDecodeErrorCodeShutdown(void);

void xml___TakenItemsStartup(void);
void xml___TakenItemsShutdown(void);
}
