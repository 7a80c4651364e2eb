/** @file
 *  Dictionaries: objects by string key, in the order in which the keys came.
 *
 *  Keys are compared by content. A look-up takes constant time, whatever the keys: they are hashed
 *  under a key of the process, so that no input can be made up to collide. Dictionaries compare
 *  like the vectors of their keys and values in turn, so the order of the entries counts. */
#ifndef VO_VO_DICT_H
#define VO_VO_DICT_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

/** A dictionary. */
typedef struct voDict voDict;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *voDictSort(void);
VO_API voDict *voDictRetain(voDict *obj);
VO_API void voDictRelease(voDict *obj);
VO_API voObj *voDictObj(voDict *obj);
VO_API voDict *voDictFrom(voObj *obj);
VO_NEW voString *voDictToString(voDict *obj);
VO_API int64_t voDictCompare(voDict *a, voDict *b);
VO_API int voDictEquals(voDict *a, voDict *b);
VO_NEW voDict *voDictCreateFrom(voDict *source);
/** @} */

/** A new empty dictionary. */
VO_NEW voDict *voDictCreate(void);

/** Stores a non-null `value`, which may be the dictionary itself as it was before. A value under a
 *  known key is replaced and keeps the key's place. */
VO_API void voDictSetStringKey(voDict **dict, voString *key, voObj *value);

/** The value under `key`, or null. */
VO_NEW voObj *voDictStringKey(voDict *dict, voString *key);

/** 1 when there is a value under `key`. */
VO_API int voDictHasStringKey(voDict *dict, voString *key);

/** The number of entries. */
VO_API int64_t voDictLength(voDict *dict);

/** The key of entry `index`, from 0 in the order in which keys came; outside, it aborts. */
VO_NEW voObj *voDictKeyAt(voDict *dict, int64_t index);

VO_END_DECLS

#endif
