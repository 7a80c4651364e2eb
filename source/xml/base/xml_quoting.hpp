// How an attribute value is put between quotes.
#pragma once

#include <cstdint>

namespace xml {

/// Which quote encloses a value, and how many of those inside it must be escaped.
struct Quoting {
    uint32_t delimiter;
    int64_t escapes;

    /// The reference that stands for the delimiter: six characters, ASCII.
    const char *entity() const { return delimiter == '"' ? "&quot;" : "&apos;"; }
};

/// The quotation mark, or the apostrophe where that is the rarer of the two.
template <class Unit> Quoting quotingOf(const Unit *at, const Unit *end) {
    int64_t marks = 0, apostrophes = 0;
    for (; at < end; ++at) {
        marks += *at == '"';
        apostrophes += *at == '\'';
    }
    return apostrophes < marks ? Quoting{'\'', apostrophes} : Quoting{'"', marks};
}

} // namespace xml
