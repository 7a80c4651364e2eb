// What references in escaped text stand for.
#pragma once

#include "source/xml/base/xml_skip.hpp"
#include "source/xml/base/xml_text.hpp"

#include <algorithm>
#include <span>

namespace xml {

inline constexpr struct {
    std::span<const uint32_t> reference;
    uint32_t ch;
} predefinedEntities[] = {
    {xml___EntityLt, '<'},   {xml___EntityGt, '>'},    {xml___EntityAmp, '&'},
    {xml___EntityQuot, '"'}, {xml___EntityApos, '\''},
};

template <class Unit> struct Reference {
    const Unit *end;
    uint32_t ch; ///< 0 for an entity that is not predefined.
};

/// The reference that stands at `at`.
template <class Unit> Reference<Unit> referenceAt(const Unit *at, const Unit *end) {
    uint32_t ch = 0;
    const Unit *behind = skipEntityRef(at, end);
    if (behind == at) {
        behind = skipCharRef(at, end, ch);
        if (behind == at) VO_UNREACHABLE();
        return {behind, ch};
    }
    for (auto &entity : predefinedEntities)
        if (std::ranges::equal(entity.reference, std::span(at, behind))) return {behind, entity.ch};
    return {behind, 0};
}

/// Writes escaped text with its references resolved, through `out.put(units)` and `out.put(ch)`.
/// False when it refers to an entity that is not predefined; what was written is then of no use.
template <class Unit, class Writer> bool unescape(std::span<const Unit> text, Writer &out) {
    const Unit *at = text.data(), *end = at + text.size();
    for (;;) {
        const Unit *plainEnd = findAny(at, end, '&', '&', '&');
        out.put(std::span(at, plainEnd));
        if (plainEnd == end) return true;
        const auto [behind, ch] = referenceAt(plainEnd, end);
        if (!ch) return false;
        out.put(ch);
        at = behind;
    }
}

} // namespace xml
