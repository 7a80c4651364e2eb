// Names for 64-bit words: what enumerations and flag sets are made of.
#pragma once

#include "source/vo/vo_words.hpp"
#include "vo/vo_dict.h"

namespace vo {

struct Names {
    voObj base;
    voDict *names;   ///< Each name, as key and as value.
    voBuffer *words; ///< The word of each name, in the order of the dictionary.

    auto fields() { return std::tie(names, words); }

    /// The word under a name, or null.
    const uint64_t *find(voString *name) const;
    /// The first name of a word as a new reference, or null.
    voString *nameOf(uint64_t word) const;
    /// Names a word; the object must be private.
    void set(const char *name, int64_t length, uint64_t word);
};

/// A new object of type T without names.
template <class T> T *createNames(voSort *sort) {
    T *object = create<T>(sort);
    object->names = voDictCreate();
    object->words = voBufferCreate();
    return object;
}

} // namespace vo

struct voEnum : vo::Names {};
struct voFlagset : vo::Names {};
