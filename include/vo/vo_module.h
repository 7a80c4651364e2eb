/** @file
 *  Modules: libraries that need to be started before they are used. */
#ifndef VO_VO_MODULE_H
#define VO_VO_MODULE_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

/** A module, which its library offers. Static, never released. */
typedef struct voModule voModule;

/** Adds a user to a module. Every user calls this before using the module and voModuleShutdown()
 *  afterwards. The call for the first user sets up the module's shared state; calls from other
 *  threads wait until that is done. Gives 1; or 0, without adding a user, when the module's own
 *  start-up gives 0, which that of xmlModule() never does. May be called from any thread, and by
 *  the start-up of one module for another module. */
VO_API int voModuleStartup(voModule *module);

/** Removes a user from a module; it aborts when the module has none. The call for the last user
 *  releases the module's shared state, after which the module can be started again. */
VO_API void voModuleShutdown(voModule *module);

/** A hash of the memory layouts that the product's libraries share. Internal to them: two libraries
 *  for which it differs are of different builds and must not be used together. */
VO_API uint64_t vo___Layout(void);

VO_END_DECLS

#endif
