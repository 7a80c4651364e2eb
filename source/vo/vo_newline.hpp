// Newlines in code points and in UTF-8, and counting lines by them.
#pragma once

#include "vo/vo_newline.h"

#include <concepts>
#include <cstring>

namespace vo {

/// What a text is made of: code points or the bytes of well-formed UTF-8.
template <class T>
concept CodeUnit = std::same_as<T, uint32_t> || std::same_as<T, uint8_t>;

/// A newline at some place: how many code units it has, and how many code points they are. Both are
/// 0 where there is none.
struct Newline {
    int64_t units;
    int64_t chars;
};

/// Whether a newline could begin with this code unit; most units are told apart by this alone.
template <CodeUnit Unit> bool mayBeginNewline(Unit unit) {
    if (unit >= '\n' && unit <= '\r') return true;
    if constexpr (sizeof(Unit) == 1) return unit == 0xC2 || unit == 0xE2;
    return unit == 0x85 || unit == 0x2028 || unit == 0x2029;
}

/// The flag of the newline that is this one code point, or 0.
constexpr voNlfFlags newlineFlag(uint32_t ch) {
    switch (ch) {
    case 0x0A:
        return VO_NLF_FLAG_LF;
    case 0x0B:
        return VO_NLF_FLAG_VT;
    case 0x0C:
        return VO_NLF_FLAG_FF;
    case 0x0D:
        return VO_NLF_FLAG_CR;
    case 0x85:
        return VO_NLF_FLAG_NEL;
    case 0x2028:
        return VO_NLF_FLAG_LS;
    case 0x2029:
        return VO_NLF_FLAG_PS;
    default:
        return 0;
    }
}

/// The newline that begins at `at`, which is before `end`.
template <CodeUnit Unit> Newline newlineAt(const Unit *at, const Unit *end, voNlfFlags flags) {
    if (!mayBeginNewline(*at)) return {0, 0};
    if (*at == '\r' && (flags & VO_NLF_FLAG_CRLF) && end - at > 1 && at[1] == '\n') return {2, 2};
    uint32_t ch = *at;
    int64_t units = 1;
    if constexpr (sizeof(Unit) == 1) {
        if (ch == 0xC2 && end - at > 1) {
            ch = at[1];
            units = 2;
        } else if (ch == 0xE2 && end - at > 2 && at[1] == 0x80) {
            ch = 0x2000 | (at[2] & 0x3F);
            units = 3;
        }
    }
    return newlineFlag(ch) & flags ? Newline{units, 1} : Newline{0, 0};
}

/// A place in a text, counted in code points.
struct Place {
    int64_t offset = 0;
    int64_t line = 1;
    int64_t column = 1;
};

/// Walks through a text, from one place of interest to a later one, and counts.
template <CodeUnit Unit> class LineCounter {
  public:
    LineCounter(const Unit *begin, const Unit *textEnd, voNlfFlags nlfFlags, Place start)
        : at(begin), end(textEnd), flags(nlfFlags), place(start) {}

    /// The place of the code point at `target`, which is not before the target of an earlier call.
    Place moveTo(const Unit *target) {
        for (skipOrdinary(target); at < target; skipOrdinary(target)) {
            Newline newline = newlineAt(at, end, flags);
            // Between CR and LF the newline is not over; it is counted by a later call.
            if (newline.units > target - at)
                return {place.offset + 1, place.line, place.column + 1};
            if (newline.units) {
                at += newline.units;
                place = {place.offset + newline.chars, place.line + 1, 1};
            } else {
                pass(isCharStart(*at++));
            }
        }
        return place;
    }

  private:
    static bool isCharStart(Unit unit) { return sizeof(Unit) > 1 || (unit & 0xC0) != 0x80; }

    void pass(int64_t chars) {
        place.offset += chars;
        place.column += chars;
    }

    /// Most bytes of most texts are printable ASCII, which nothing but the count depends on.
    void skipOrdinary(const Unit *target) {
        if constexpr (sizeof(Unit) == 1) {
            constexpr uint64_t everyByte = UINT64_C(0x0101010101010101);
            for (uint64_t word; target - at >= 8; at += 8, pass(8)) {
                std::memcpy(&word, at, sizeof(word));
                if (((word - everyByte * ('\r' + 1)) | word) & everyByte * 0x80) return;
            }
        }
    }

    const Unit *at;
    const Unit *end;
    voNlfFlags flags;
    Place place;
};

} // namespace vo
