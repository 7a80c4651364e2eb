/** @file
 *  Stores: records for settings, made of strings and further stores.
 *
 *  A keyed store holds strings and stores under string keys, in the order in which the keys came;
 *  an array store holds stores by index. Looking up a key in an array gives null, but storing into
 *  a store of the wrong kind aborts. A store may be put into itself: it then holds itself as it was
 *  before. Stores compare by content, in which the order of the entries counts; keyed stores come
 *  before arrays.
 *
 *  `const char *key, int64_t length` is an ASCII key as in vo_string.h. */
#ifndef VO_VO_STORE_H
#define VO_VO_STORE_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

/** A store. */
typedef struct voStore voStore;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *voStoreSort(void);
VO_API voStore *voStoreRetain(voStore *obj);
VO_API void voStoreRelease(voStore *obj);
VO_API voObj *voStoreObj(voStore *obj);
VO_API voStore *voStoreFrom(voObj *obj);
VO_NEW voString *voStoreToString(voStore *obj);
VO_API int64_t voStoreCompare(voStore *a, voStore *b);
VO_API int voStoreEquals(voStore *a, voStore *b);
VO_NEW voStore *voStoreCreateFrom(voStore *source);
/** @} */

/** A new empty keyed store. */
VO_NEW voStore *voStoreCreate(void);
/** A new empty array store. */
VO_NEW voStore *voStoreCreateArray(void);

/** @name Keyed stores
 *  Setting replaces whatever is under the key, in its place. A look-up gives null when there is
 *  nothing under the key, or something of the other kind. @{ */
VO_API void voStoreSetValueCstr(voStore **store, const char *key, int64_t length, voString *value);
VO_NEW voString *voStoreValueCstr(voStore *store, const char *key, int64_t length);
VO_API void voStoreSetStoreCstr(voStore **store, const char *key, int64_t length, voStore *sub);
VO_NEW voStore *voStoreStoreCstr(voStore *store, const char *key, int64_t length);
/** @} */

/** Appends to an array store. */
VO_API void voStoreAppendStore(voStore **array, voStore *sub);

/** The number of entries of a store of either kind. */
VO_API int64_t voStoreLength(voStore *store);

/** The store that is entry `index` of a store of either kind, or null when the entry is a string.
 *  An index outside aborts. */
VO_NEW voStore *voStoreStoreAt(voStore *store, int64_t index);

VO_END_DECLS

#endif
