// Finding the next character that matters in a run of text.
#pragma once

#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace xml {

/// The first of the characters `a`, `b` and `c` at or after `at`, else `end`.
inline const uint32_t *findAny(const uint32_t *at, const uint32_t *end, char a, char b, char c) {
    const auto is = [](uint32_t unit, char wanted) { return unit == uint32_t(wanted); };
    while (at < end && !is(*at, a) && !is(*at, b) && !is(*at, c))
        ++at;
    return at;
}

/// The same in UTF-8, where an ASCII character is found by its byte.
inline const uint8_t *findAny(const uint8_t *at, const uint8_t *end, char a, char b, char c) {
#if defined(__SSE2__)
    const __m128i as = _mm_set1_epi8(a), bs = _mm_set1_epi8(b), cs = _mm_set1_epi8(c);
    for (; end - at >= 16; at += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i *>(at));
        const __m128i hits =
            _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(bytes, as), _mm_cmpeq_epi8(bytes, bs)),
                         _mm_cmpeq_epi8(bytes, cs));
        if (int mask = _mm_movemask_epi8(hits)) return at + __builtin_ctz(unsigned(mask));
    }
#endif
    const auto is = [](uint8_t unit, char wanted) { return unit == uint8_t(wanted); };
    while (at < end && !is(*at, a) && !is(*at, b) && !is(*at, c))
        ++at;
    return at;
}

} // namespace xml
