/** @file
 *  Vectors: sequences of objects.
 *
 *  A vector holds a reference to each of its items, which are never null. Indexes count from 0; an
 *  index outside the vector aborts. Vectors compare item by item as voObjCompare() does, then by
 *  length. A vector may be put into itself: it then holds itself as it was before. */
#ifndef VO_VO_VECTOR_H
#define VO_VO_VECTOR_H

#include "vo/vo_object.h"

VO_BEGIN_DECLS

/** A vector. */
typedef struct voVector voVector;

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *voVectorSort(void);
VO_API voVector *voVectorRetain(voVector *obj);
VO_API void voVectorRelease(voVector *obj);
VO_API voObj *voVectorObj(voVector *obj);
VO_API voVector *voVectorFrom(voObj *obj);
VO_NEW voString *voVectorToString(voVector *obj);
VO_API int64_t voVectorCompare(voVector *a, voVector *b);
VO_API int voVectorEquals(voVector *a, voVector *b);
VO_NEW voVector *voVectorCreateFrom(voVector *source);
/** @} */

/** A new empty vector. */
VO_NEW voVector *voVectorCreate(void);

/** The number of items. */
VO_API int64_t voVectorLength(voVector *vec);

/** The item at `index`. */
VO_NEW voObj *voVectorObjAt(voVector *vec, int64_t index);

/** 1 when every item is of the sort `sort`, also when there is none. */
VO_API int voVectorContainsOnly(voVector *vec, voSort *sort);

/** Replaces the item at `index`. */
VO_API void voVectorSetObjAt(voVector **vec, int64_t index, voObj *obj);

/** Inserts before the item at `index`; the vector's length as the index appends. */
VO_API void voVectorInsertObj(voVector **vec, int64_t index, voObj *obj);

/** Inserts every item of `other`, in order, where voVectorInsertObj() would insert one. */
VO_API void voVectorInsert(voVector **vec, int64_t index, voVector *other);

/** Adds an item at the end. */
VO_API void voVectorAppendObj(voVector **vec, voObj *obj);

/** Removes the item at `index`; those behind it move up. */
VO_API void voVectorDelAt(voVector **vec, int64_t index);

/** Removes every item. */
VO_API void voVectorClear(voVector **vec);

/** The same as voVectorAppendObj(), the counterpart of voVectorPop(). */
VO_API void voVectorPush(voVector **vec, voObj *obj);

/** Removes the last item and gives it to the caller. An empty vector aborts. */
VO_NEW voObj *voVectorPop(voVector **vec);

VO_END_DECLS

#endif
