// How an object type is written: its header, its fields and its common operations.
#pragma once

#include "vo/vo_object.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>
#include <utility>

/// The class of an object. Aligned so that the low bits of its address are free, see `voObj`.
struct alignas(16) voSort;

struct voObj {
    /// The sort's address. Its four low bits are 0 for an object that is an allocation of its own
    /// and otherwise tell the size of the chunk it lives in (vo_chunk.hpp).
    voSort *taggedSort;
    /// Holders of the object. A dead object's count may link it to others that wait to be freed.
    std::atomic<int64_t> refs;
};

struct alignas(16) voSort {
    voObj base;
    void *module;
    const char *name;
    void (*free)(voObj *);                          ///< Null: there are no parts to release.
    int64_t (*compare)(voObj *, voObj *) = nullptr; ///< Null: by identity.
    voString *(*toString)(voObj *) = nullptr;       ///< Null: the sort's name.
    void *reserved[5] = {};
};

// ---------------------------------------------------------------- checks

/// Ends the process unless the condition holds. Its text is the condition as written here.
/// Not built on VO_ASSERT_IN: passing the condition on would expand the macros in its text.
#define VO_ASSERT(...)                                                                             \
    ((__VA_ARGS__) ? void() : vo___Abort(nullptr, __FILE__, __LINE__, #__VA_ARGS__))
#define VO_ASSERT_IN(context, ...)                                                                 \
    ((__VA_ARGS__) ? void() : vo___Abort(context, __FILE__, __LINE__, #__VA_ARGS__))

/// A point that is never reached.
#define VO_UNREACHABLE() vo___Abort(nullptr, __FILE__, __LINE__, nullptr)

/// Checks the address of a reference and the reference itself.
#define VO_ASSERT_REF(ref) (VO_ASSERT(ref), VO_ASSERT(*ref))

/// The object, checked present: `VO_READ(attr)->name`.
#define VO_READ(obj) (VO_ASSERT(obj), (obj))

/// The object behind the caller's reference, checked and private to it: `VO_EDIT(attr)->name`.
#define VO_EDIT(ref) (VO_ASSERT_REF(ref), VO_ASSERT(((*ref))), vo::makePrivate(ref))

#if defined(__clang__)
#define VO_LIFETIMEBOUND [[clang::lifetimebound]]
#else
#define VO_LIFETIMEBOUND
#endif

namespace vo {

inline constexpr uintptr_t chunkTagMask = 15;

template <class T> voObj *obj(T *object) {
    static_assert(std::is_class_v<T>);
    return reinterpret_cast<voObj *>(object);
}

inline uintptr_t chunkTag(const voObj *object) {
    return reinterpret_cast<uintptr_t>(object->taggedSort) & chunkTagMask;
}

inline voSort *sortOf(const voObj *object) {
    return reinterpret_cast<voSort *>(reinterpret_cast<uintptr_t>(object->taggedSort) &
                                      ~chunkTagMask);
}

/// Whether the caller's reference is the only one, so that the object may be changed in place.
template <class T> bool isSole(T *object) {
    return obj(object)->refs.load(std::memory_order_acquire) == 1;
}

/// A new reference to `object`; null stays null.
template <class T> [[nodiscard]] T *retained(T *object) {
    if (object) obj(object)->refs.fetch_add(1, std::memory_order_relaxed);
    return object;
}

/// Adds `times` references to an object that the caller holds.
template <class T> void retainTimes(T *object, int64_t times) {
    obj(object)->refs.fetch_add(times, std::memory_order_relaxed);
}

/// Gives up a reference to an object and tells whether it was the last. A sole owner needs no
/// atomic subtraction.
template <class T> [[nodiscard]] bool dropLast(T *object) {
    return isSole(object) || obj(object)->refs.fetch_sub(1, std::memory_order_acq_rel) == 1;
}

/// Gives up a reference; null is ignored.
template <class T> void release(T *object) {
    if (object && dropLast(object)) vo___ObjFree(obj(object));
}

/// Stores a field: retains the new value before it releases the old one, so both may be the same.
template <class T> void assign(T *&field, std::type_identity_t<T> *value) {
    release(std::exchange(field, retained(value)));
}

/// One reference, released at the end of the scope.
template <class T> class [[nodiscard]] Ref {
  public:
    Ref() : object(nullptr) {}
    explicit Ref(T *adopted) : object(adopted) {}
    Ref(Ref &&other) noexcept : object(std::exchange(other.object, nullptr)) {}
    Ref &operator=(Ref other) noexcept {
        std::swap(object, other.object);
        return *this;
    }
    ~Ref() { release(object); }

    operator T *() const VO_LIFETIMEBOUND { return object; }
    T *operator->() const { return object; }
    T **edit() { return &object; }                       ///< For copy-on-write setters.
    T *take() { return std::exchange(object, nullptr); } ///< Hands the reference on.

  private:
    T *object;
};

// ---------------------------------------------------------------- fields

/// Retains what a field holds. A field that is not a pointer may have retain() and drop() for that.
template <class T> void retainField(T &field) {
    if constexpr (std::is_pointer_v<T>) (void)retained(field);
    if constexpr (requires { field.retain(); }) field.retain();
}

/// Releases an object field and poisons it, so that a use after free is caught.
template <class T> void dropField(T &field) {
    if constexpr (std::is_pointer_v<T>) {
        release(field);
        field = reinterpret_cast<T>(~uintptr_t{0});
    }
    if constexpr (requires { field.drop(); }) field.drop();
}

/// A new object whose fields are all null or zero.
template <class T> T *create(voSort *sort) {
    T *object = reinterpret_cast<T *>(vo___ObjCreate(sizeof(T), sort));
    std::apply([](auto &...field) { ((field = {}), ...); }, object->fields());
    return object;
}

/// A shallow copy: shares every field value with `source`, whose fields are made if they are not.
template <class T> T *copy(T *source) {
    if constexpr (requires { source->complete(); }) source->complete();
    T *object = create<T>(sortOf(obj(source)));
    object->fields() = source->fields();
    std::apply([](auto &...field) { (retainField(field), ...); }, object->fields());
    return object;
}

template <class T> void dropFields(T *object) {
    std::apply([](auto &...field) { (dropField(field), ...); }, object->fields());
}

/// Copy-on-write: gives the caller's reference an object of its own.
template <class T> T *makePrivate(T **ref) {
    if (!isSole(*ref)) {
        T *shared = std::exchange(*ref, copy(*ref));
        release(shared);
    }
    return *ref;
}

} // namespace vo

// ---------------------------------------------------------------- common operations

/// Defines the operations every type has, but for CreateFrom. `sortRecord` is the type's sort.
#define VO_OPERATIONS(prefix, T, sortRecord)                                                       \
    static_assert(std::is_standard_layout_v<T> && offsetof(T, base) == 0);                         \
    voSort *prefix##Sort(void) { return &sortRecord; }                                             \
    T *prefix##Retain(T *obj) {                                                                    \
        VO_ASSERT_IN("stdfunc retain", obj);                                                       \
        return vo::retained(obj);                                                                  \
    }                                                                                              \
    void prefix##Release(T *obj) {                                                                 \
        VO_ASSERT_IN("stdfunc release", obj);                                                      \
        vo::release(obj);                                                                          \
    }                                                                                              \
    voObj *prefix##Obj(T *obj) { return vo::obj(obj); }                                            \
    T *prefix##From(voObj *obj) {                                                                  \
        if (obj && vo::sortOf(obj) != &sortRecord)                                                 \
            vo___Abort("stdfunc from", __FILE__, __LINE__,                                         \
                       "!obj || voObjSort(obj)==&" #sortRecord);                                   \
        return reinterpret_cast<T *>(obj);                                                         \
    }                                                                                              \
    voString *prefix##ToString(T *obj) {                                                           \
        VO_ASSERT_IN("stdfunc tostring", obj);                                                     \
        return voObjToString(vo::obj(obj));                                                        \
    }                                                                                              \
    int64_t prefix##Compare(T *objA, T *objB) {                                                    \
        VO_ASSERT_IN("stdfunc compare a", objA);                                                   \
        VO_ASSERT_IN("stdfunc compare b", objB);                                                   \
        return voObjCompare(vo::obj(objA), vo::obj(objB));                                         \
    }                                                                                              \
    int prefix##Equals(T *objA, T *objB) {                                                         \
        return voObjCompare(vo::obj(objA), vo::obj(objB)) == 0;                                    \
    }                                                                                              \
    static_assert(true)

/// Defines an object type without setters from its `fields()`: the sort record, the free function
/// and the common operations but for CreateFrom. `param` is what the type's functions call their
/// object; abort texts show it. What follows `param`, if anything, is the sort's comparison and its
/// conversion to a string.
#define VO_CONSTANT_OBJECT(prefix, T, sortRecord, freeFunc, module, param, ...)                    \
    extern "C" void freeFunc(voObj *obj);                                                          \
    extern "C" voSort sortRecord;                                                                  \
    void freeFunc(voObj *obj) {                                                                    \
        T *param = prefix##From(obj);                                                              \
        VO_ASSERT(param);                                                                          \
        vo::dropFields(param);                                                                     \
    }                                                                                              \
    constinit voSort sortRecord = {{nullptr, 1}, module, #T, freeFunc, __VA_ARGS__};               \
    VO_OPERATIONS(prefix, T, sortRecord)

/// Defines a whole object type: the same and CreateFrom, which setters copy with.
#define VO_OBJECT(prefix, T, sortRecord, freeFunc, module, param, ...)                             \
    VO_CONSTANT_OBJECT(prefix, T, sortRecord, freeFunc, module, param, __VA_ARGS__);               \
    T *prefix##CreateFrom(T *source) {                                                             \
        VO_ASSERT(source);                                                                         \
        return vo::copy(source);                                                                   \
    }                                                                                              \
    static_assert(true)
