/** @file
 *  Enumerations: names for integer values.
 *
 *  `const char *name, int64_t length` is an ASCII name as in vo_string.h. */
#ifndef VO_VO_ENUM_H
#define VO_VO_ENUM_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

/** An enumeration. */
typedef struct voEnum voEnum;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *voEnumSort(void);
VO_API voEnum *voEnumRetain(voEnum *obj);
VO_API void voEnumRelease(voEnum *obj);
VO_API voObj *voEnumObj(voEnum *obj);
VO_API voEnum *voEnumFrom(voObj *obj);
VO_NEW voString *voEnumToString(voEnum *obj);
VO_API int64_t voEnumCompare(voEnum *a, voEnum *b);
VO_API int voEnumEquals(voEnum *a, voEnum *b);
VO_NEW voEnum *voEnumCreateFrom(voEnum *source);
/** @} */

/** A new empty enumeration. */
VO_NEW voEnum *voEnumCreate(void);

/** Names a value. A known name gets the new value. */
VO_API void voEnumSetEnumerantCstr(voEnum **en, const char *name, int64_t length, int64_t value);

/** The value that `str` names, or -1. */
VO_API int64_t voEnumParse(voEnum *en, voString *str);

/** The name of `value`, the first one when it has several, or null. */
VO_NEW voString *voEnumGenerate(voEnum *en, int64_t value);

VO_END_DECLS

#endif
