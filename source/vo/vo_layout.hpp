// The memory layouts that both libraries know, as one number.
#pragma once

#include "source/vo/vo_array.hpp"
#include "source/vo/vo_chunk.hpp"
#include "source/vo/vo_location.hpp"
#include "source/vo/vo_module.hpp"

namespace vo {

template <class... Numbers> constexpr uint64_t hashNumbers(Numbers... numbers) {
    uint64_t hash = 0;
    ((hash = (hash ^ uint64_t(numbers)) * UINT64_C(0x9E3779B97F4A7C15)), ...);
    return hash;
}

/// Each library is compiled with these private layouts. xmlModule() compares the number that it was
/// compiled with to that of the runtime it has met, so that libraries of two builds whose layouts
/// differ never touch each other's objects. What else comes to be known to both belongs here.
inline constexpr uint64_t layout = hashNumbers(
    offsetof(voObj, taggedSort), offsetof(voObj, refs), sizeof(voObj), offsetof(voSort, module),
    offsetof(voSort, name), offsetof(voSort, free), offsetof(voSort, compare),
    offsetof(voSort, toString), sizeof(voSort), offsetof(voModule, record),
    offsetof(voModule, startup), offsetof(voModule, shutdown), offsetof(voModule, users),
    sizeof(voModule), offsetof(voString, length), sizeof(voString), sizeof(voString::Item),
    sizeof(voBuffer), sizeof(voVector), roomFor(1000), offsetof(voParserLocation, source),
    offsetof(voParserLocation, offset), offsetof(voParserLocation, line),
    offsetof(voParserLocation, column), sizeof(voParserLocation), offsetof(Chunk, live),
    offsetof(Chunk, size), sizeof(Chunk), chunkTagMask, Chunk::tagShift, Chunk::largest,
    Chunk::openBias);

} // namespace vo
