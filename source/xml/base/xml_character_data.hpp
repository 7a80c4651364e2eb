// What texts, CDATA sections, comments and processing instructions have in common: a value and a
// place.
#pragma once

#include "source/vo/vo_object.hpp"
#include "vo/vo.h"

namespace xml {

struct CharacterData {
    voObj base;
    voString *value;
    voParserLocation *location; ///< Null when it was not recorded.

    auto fields() { return std::tie(value, location); }
};

/// A node of type T with this text and no location.
template <class T> T *createCharacterData(voSort *sort, voString *value) {
    T *node = vo::create<T>(sort);
    node->value = vo::retained(value);
    return node;
}

} // namespace xml
