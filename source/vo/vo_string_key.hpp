// Strings as keys: equality and hashes.
#pragma once

#include "source/vo/vo_array.hpp"
#include "source/vo/vo_hash.hpp"

namespace vo {

/// Whether two strings are equal. Equal names are mostly one object.
inline bool sameText(voString *a, voString *b) {
    return a == b || (a->length == b->length &&
                      !std::memcmp(a->items(), b->items(), size_t(a->length) * sizeof(uint32_t)));
}

/// The same where either may be absent. An absent string equals only an absent one.
inline bool sameOptionalText(voString *optionalA, voString *optionalB) {
    return optionalA && optionalB ? sameText(optionalA, optionalB) : optionalA == optionalB;
}

inline uint64_t hashText(voString *text) {
    return hashBytes(text->items(), size_t(text->length) * sizeof(uint32_t));
}

} // namespace vo
