/** @file
 *  The whole base runtime. */
#ifndef VO_VO_H
#define VO_VO_H

#include "vo/vo_charset.h"
#include "vo/vo_object.h"
#include "vo/vo_string.h"

#endif
