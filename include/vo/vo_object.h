/** @file
 *  Objects: what every counted value of the runtime has in common.
 *
 *  Every value is an immutable object with an atomic reference count. A holder of the only
 *  reference may change it in place; everybody else gets a private copy first. So any number of
 *  threads may read, retain and release one object at once, and no reader ever sees a change. Two
 *  threads must not change the same reference variable.
 *
 *  Rules that hold for every function unless its comment says otherwise:
 *  - Object arguments are borrowed: the caller keeps its reference. A container retains what is
 *    stored in it.
 *  - A function marked VO_NEW gives a new reference, which the caller releases.
 *  - A function that changes a value takes the address of the caller's reference, because the
 *    reference may come to designate a private or a moved object.
 *  - Only a parameter called `optional...` may be null.
 *  - A broken precondition, such as a null argument, is a mistake in the calling program: it ends
 *    the process through vo___Abort() with the condition that failed. The condition may be one of
 *    a function that is called in turn. Only xmlNsNamespaceMappingIsDefault() makes no check. Bad
 *    input data never ends the process.
 *
 *  Every type T has these common operations, written out in its header and described only here:
 *
 *      voSort *TSort(void)               the class descriptor of the type
 *      T *TRetain(T *obj)                adds a reference; gives `obj` back
 *      void TRelease(T *obj)             gives up a reference
 *      voObj *TObj(T *obj)               the same pointer as a plain object; null stays null
 *      T *TFrom(voObj *obj)              the way back; null stays null; another type aborts.
 *                                        Neither this nor TObj changes the count
 *      voString *TToString(T *obj)       as voObjToString()
 *      int64_t TCompare(T *a, T *b)      as voObjCompare(); null aborts
 *      int TEquals(T *a, T *b)           1 when voObjCompare() is 0; null is allowed
 *      T *TCreateFrom(T *source)         a shallow copy that shares every part of `source` */
#ifndef VO_VO_OBJECT_H
#define VO_VO_OBJECT_H

#include <stdint.h>

/** @name Linkage
 *  What stands between them is C, also for a compiler of C++. @{ */
#ifdef __cplusplus
#define VO_BEGIN_DECLS extern "C" {
#define VO_END_DECLS }
#else
#define VO_BEGIN_DECLS
#define VO_END_DECLS
#endif
/** @} */

#if defined(__GNUC__)
/** A function of the library's interface. */
#define VO_API __attribute__((visibility("default")))
/** The same, with a result that is a new reference: the caller releases it. Dropping it warns. */
#define VO_NEW __attribute__((visibility("default"), warn_unused_result))
/** A function that never returns. */
#define VO_NORETURN __attribute__((noreturn))
#else
#define VO_API
#define VO_NEW
#define VO_NORETURN
#endif

VO_BEGIN_DECLS

/** Any object. */
typedef struct voObj voObj;
/** The class of an object: its name and how it is freed. Static, never released. */
typedef struct voSort voSort;
typedef struct voString voString; /**< See vo_string.h; named here for voObjToString(). */

/** Adds a reference to a non-null object and gives the object back. */
VO_API voObj *voObjRetain(voObj *obj);

/** Gives up a reference to a non-null object; the last one frees it. Freeing needs no stack in
 *  proportion to the depth of the structure. */
VO_API void voObjRelease(voObj *obj);

/** The sort of a non-null object. */
VO_API voSort *voObjSort(voObj *obj);

/** Orders two objects: negative, 0 for equal, positive. Strings, buffers, vectors, dictionaries,
 *  stores, locations and messages compare by content; every other object, those of the XML library
 *  among them, by identity: it equals itself alone, in an order that stays the same while both
 *  live. Objects of different sorts compare by sort. Null equals null and comes before every
 *  object. */
VO_API int64_t voObjCompare(voObj *a, voObj *b);

/** A text for a non-null object: a string gives itself; a message and a location what their headers
 *  say; a sort without a conversion, as all of the XML library's are, the sort's name. */
VO_NEW voString *voObjToString(voObj *obj);

/** Allocates an object of `size` bytes, its header included, with a count of 1. The caller sets
 *  the fields. Never null. */
VO_NEW voObj *vo___ObjCreate(int64_t size, voSort *sort);

/** Changes the size of an object that has one holder and an allocation of its own, as
 *  vo___ObjCreate() makes it; it may move. Never null. */
VO_NEW voObj *vo___ObjResize(voObj *obj, int64_t size);

/** Frees an object whose last reference is gone. The parts that it releases are freed by nested
 *  calls, at most 64 deep; what lies deeper waits in a list, which the outermost call empties. So
 *  a deep tree needs no deep stack. */
VO_API void vo___ObjFree(voObj *obj);

/** Writes `context` (may be null), file, line and `text` (may be null) to standard error as one
 *  line and ends the process with abort(). */
VO_API VO_NORETURN void vo___Abort(const char *context, const char *file, int64_t line,
                                   const char *text);

/** @name Chunks
 *  Memory for many objects that are made together, as a decoder makes them. Internal to the
 *  product's libraries, which build objects in place; see source/vo/vo_chunk.hpp. @{ */

/** A chunk for about `bytes` bytes of objects: a block aligned to its own size, which is a power
 *  of two that the block's header tells. The caller closes it. */
VO_NEW void *vo___ChunkOpen(int64_t bytes);

/** Closes a chunk in which `objects` objects were placed. Its memory goes when they have gone. */
VO_API void vo___ChunkClose(void *chunk, int64_t objects);
/** @} */

VO_END_DECLS

#endif
