/** @file
 *  The library as a module of the runtime. */
#ifndef XML_XML_MODULE_H
#define XML_XML_MODULE_H

#include "vo/vo.h"

VO_BEGIN_DECLS

/** The module object, static and never released. A program calls voModuleStartup() with it before
 *  any other function of this library and voModuleShutdown() after the last one; every user of the
 *  library in a process does so, and the runtime counts them. */
VO_API voModule *xmlModule(void);

VO_END_DECLS

#endif
