/** @file
 *  Flag sets: names for the bits of a flag word.
 *
 *  The text form of a flag word is the names of its bits in ascending order, joined by `|`; that of
 *  the empty word is the empty string. Reading accepts blanks and tabs around the names, in any
 *  order. `const char *name, int64_t length` is an ASCII name as in vo_string.h. */
#ifndef VO_VO_FLAGSET_H
#define VO_VO_FLAGSET_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

/** A flag set. */
typedef struct voFlagset voFlagset;

/** What an unknown name reads as in the flag words of the runtime; xmlFlagsFromString() drops it.
 */
#define VO_FLAG_UNKNOWN (UINT64_C(1) << 63)

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *voFlagsetSort(void);
VO_API voFlagset *voFlagsetRetain(voFlagset *obj);
VO_API void voFlagsetRelease(voFlagset *obj);
VO_API voObj *voFlagsetObj(voFlagset *obj);
VO_API voFlagset *voFlagsetFrom(voObj *obj);
VO_NEW voString *voFlagsetToString(voFlagset *obj);
VO_API int64_t voFlagsetCompare(voFlagset *a, voFlagset *b);
VO_API int voFlagsetEquals(voFlagset *a, voFlagset *b);
VO_NEW voFlagset *voFlagsetCreateFrom(voFlagset *source);
/** @} */

/** A new empty flag set. */
VO_NEW voFlagset *voFlagsetCreate(void);

/** 1 when the set has a flag of exactly this name. */
VO_API int voFlagsetHasFlagCstr(voFlagset *flagset, const char *name, int64_t length);

/** Names a bit; `bit` is a word with that bit alone. A known name gets the new bit. */
VO_API void voFlagsetSetFlagCstr(voFlagset **flagset, const char *name, int64_t length,
                                 uint64_t bit);

/** The word that a text stands for. A name that the set does not know, as well as an empty name
 *  beside a `|`, reads as VO_FLAG_UNKNOWN. */
VO_API uint64_t voFlagsetParse(voFlagset *flagset, voString *str);

/** The text form of `word`; bits without a name are left out. */
VO_NEW voString *voFlagsetGenerate(voFlagset *flagset, uint64_t word);

VO_END_DECLS

#endif
