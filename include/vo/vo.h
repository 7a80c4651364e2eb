/** @file
 *  The whole base runtime. */
#ifndef VO_VO_H
#define VO_VO_H

#include "vo/vo_buffer.h"
#include "vo/vo_charset.h"
#include "vo/vo_dict.h"
#include "vo/vo_enum.h"
#include "vo/vo_file.h"
#include "vo/vo_flagset.h"
#include "vo/vo_format.h"
#include "vo/vo_location.h"
#include "vo/vo_memory.h"
#include "vo/vo_message.h"
#include "vo/vo_module.h"
#include "vo/vo_newline.h"
#include "vo/vo_object.h"
#include "vo/vo_store.h"
#include "vo/vo_string.h"
#include "vo/vo_vector.h"

#endif
