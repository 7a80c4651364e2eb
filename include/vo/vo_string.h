/** @file
 *  Strings of Unicode code points. */
#ifndef VO_VO_STRING_H
#define VO_VO_STRING_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

VO_NEW voString *voStringCreateFromCstr(const char *cstr, int64_t length);

VO_END_DECLS

#endif
