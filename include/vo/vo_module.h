/** @file
 *  Modules: libraries that need to be started before they are used. */
#ifndef VO_VO_MODULE_H
#define VO_VO_MODULE_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

/** A module, which its library offers. Static, never released. */
typedef struct voModule voModule;

/** Makes a module usable, for this user too: every user starts the module before using it and
 *  shuts it down after. The first one has it set up its shared state, and the others wait until it
 *  is. Gives 1, or 0 when the module could not start; it then has not gained a user. May be called
 *  from any thread, and by a module that is starting for another one. */
VO_API int voModuleStartup(voModule *module);

/** Ends one use of a started module. The last one has it drop its shared state, after which it can
 *  be started again. */
VO_API void voModuleShutdown(voModule *module);

VO_END_DECLS

#endif
