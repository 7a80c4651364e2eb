/** @file
 *  The library as a module of the runtime. */
#ifndef XML_XML_MODULE_H
#define XML_XML_MODULE_H

#include "vo/vo.h"

VO_BEGIN_DECLS

/** The module object, static and never released. A program calls voModuleStartup() with it before
 *  any other function of this library and voModuleShutdown() after the last one; every user of the
 *  library in a process does so, and the runtime counts them. Aborts when libvo and libvoxml are of
 *  two builds that do not fit together. */
VO_API voModule *xmlModule(void);

/** @name Version
 *  VOXML_VERSION is that of the headers, as one number that grows with it: 10203 for 1.2.3.
 *  voxmlVersion() gives that of the library that the program has met, which need not be the one
 *  that it was compiled for. It may be called at any time. @{ */
#define VOXML_VERSION_MAJOR 1
#define VOXML_VERSION_MINOR 0
#define VOXML_VERSION_PATCH 0
#define VOXML_VERSION                                                                              \
    (VOXML_VERSION_MAJOR * 10000 + VOXML_VERSION_MINOR * 100 + VOXML_VERSION_PATCH)
VO_API int64_t voxmlVersion(void);
/** @} */

VO_END_DECLS

#endif
