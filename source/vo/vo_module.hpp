// What a module object is made of, for the libraries that define one.
#pragma once

#include "source/vo/vo_object.hpp"
#include "vo/vo_module.h"

/// A static object, which the library that offers it defines with `constinit`. Functions may be
/// null.
struct voModule {
    voObj base; ///< Of no sort; the count stays 1.
    void *record;
    int (*startup)(void); ///< Gives 1, or 0 when the module cannot start.
    void *reserved;
    void (*shutdown)(void);
    void *furtherReserved[5];
    int64_t users; ///< Changed under the runtime's module lock only.
};
