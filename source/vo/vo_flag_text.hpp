// The text form of flag words: names joined by `|`.
#pragma once

#include "source/vo/vo_object.hpp"
#include "vo/vo_flagset.h"
#include "vo/vo_string.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <span>

namespace vo {

/// Joins the names of the set bits. `appendName(voString **, bit)` writes one of them, or nothing
/// for a bit without a name.
template <class AppendName> voString *writeFlags(uint64_t word, AppendName appendName) {
    Ref text(voStringCreate());
    for (; word; word &= word - 1) {
        Ref name(voStringCreate());
        appendName(name.edit(), word & (0 - word));
        if (!voStringLength(name)) continue;
        if (voStringLength(text)) voStringAppendChar(text.edit(), '|');
        voStringAppend(text.edit(), name);
    }
    return text.take();
}

/// The way back. `bitOf(const uint32_t *name, int64_t length)` gives 0 for a name it does not know.
template <class BitOf> uint64_t readFlags(voString *text, BitOf bitOf) {
    auto isBlank = [](uint32_t ch) { return ch == ' ' || ch == '\t'; };
    const uint32_t *at = voStringBacking(text);
    const uint32_t *end = at + voStringLength(text);
    if (std::all_of(at, end, isBlank)) return 0;
    for (uint64_t word = 0;; ++at) {
        const uint32_t *bar = std::find(at, end, '|');
        const uint32_t *last = bar;
        while (at < last && isBlank(*at))
            ++at;
        while (at < last && isBlank(last[-1]))
            --last;
        uint64_t bit = bitOf(at, int64_t(last - at));
        word |= bit ? bit : VO_FLAG_UNKNOWN;
        if (bar == end) return word;
        at = bar;
    }
}

/// Both for words whose bits are named by a table, from bit 0 on.
using FlagNames = std::span<const char *const>;

constexpr uint64_t namedBits(FlagNames names) { return ~uint64_t{0} >> (64 - names.size()); }

inline voString *writeNamedFlags(uint64_t word, FlagNames names) {
    return writeFlags(word & namedBits(names), [&](voString **text, uint64_t bit) {
        voStringAppendCstr(text, names[size_t(std::countr_zero(bit))], -1);
    });
}

inline uint64_t readNamedFlags(voString *text, FlagNames names) {
    return readFlags(text, [&](const uint32_t *name, int64_t length) -> uint64_t {
        for (size_t i = 0; i < names.size(); ++i)
            if (std::equal(name, name + length, names[i], names[i] + std::strlen(names[i])))
                return uint64_t{1} << i;
        return 0;
    });
}

} // namespace vo
