// UTF-8 and code points: the inner loops of reading and writing. Header-only, because both
// libraries run them.
#pragma once

#include <bit>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace vo {

inline constexpr uint32_t replacementChar = 0xFFFD;

/// A code point that is not a surrogate: what every encoding form can express.
constexpr bool isScalar(uint32_t ch) { return ch < 0xD800 || (ch >= 0xE000 && ch <= 0x10FFFF); }

/// Takes one character from text that is known to be well-formed and not at its `end`.
inline uint32_t decodeUtf8(const uint8_t *&at, [[maybe_unused]] const uint8_t *end) {
    uint32_t lead = *at;
    auto low = [&at](int index) { return uint32_t(at[index]) & 0x3F; };
    uint32_t ch = lead;
    if (lead < 0x80) {
        at += 1;
    } else if (lead < 0xE0) {
        ch = (lead & 0x1F) << 6 | low(1);
        at += 2;
    } else if (lead < 0xF0) {
        ch = (lead & 0x0F) << 12 | low(1) << 6 | low(2);
        at += 3;
    } else {
        ch = (lead & 0x07) << 18 | low(1) << 12 | low(2) << 6 | low(3);
        at += 4;
    }
    assert(at <= end);
    return ch;
}

/// Writes one scalar value and gives its length, 1 to 4. Needs room for that only.
inline int encodeUtf8(uint8_t *out, uint32_t ch) {
    auto low = [ch](int shift) { return uint8_t(0x80 | ((ch >> shift) & 0x3F)); };
    if (ch < 0x80) return out[0] = uint8_t(ch), 1;
    if (ch < 0x800) return out[0] = uint8_t(0xC0 | ch >> 6), out[1] = low(0), 2;
    if (ch < 0x10000) return out[0] = uint8_t(0xE0 | ch >> 12), out[1] = low(6), out[2] = low(0), 3;
    return out[0] = uint8_t(0xF0 | ch >> 18), out[1] = low(12), out[2] = low(6), out[3] = low(0), 4;
}

/// Whether 8 bytes are ASCII.
inline bool isAscii8(const uint8_t *at) {
    uint64_t bytes;
    std::memcpy(&bytes, at, sizeof bytes);
    return !(bytes & 0x8080808080808080);
}

#if defined(__SSE2__)

inline __m128i load8(const void *at) { return _mm_loadl_epi64(static_cast<const __m128i *>(at)); }
inline __m128i load16(const void *at) { return _mm_loadu_si128(static_cast<const __m128i *>(at)); }
inline void store16(void *at, __m128i value) {
    _mm_storeu_si128(static_cast<__m128i *>(at), value);
}

/// One bit for each of 16 bytes that is not ASCII.
inline unsigned notAscii16(__m128i bytes) { return unsigned(_mm_movemask_epi8(bytes)); }

/// Writes 8 units of 16 bits as 8 code points.
inline void widen8(uint32_t *out, __m128i units) {
    __m128i zero = _mm_setzero_si128();
    store16(out, _mm_unpacklo_epi16(units, zero));
    store16(out + 4, _mm_unpackhi_epi16(units, zero));
}

inline void widen16(uint32_t *out, __m128i bytes) {
    __m128i zero = _mm_setzero_si128();
    widen8(out, _mm_unpacklo_epi8(bytes, zero));
    widen8(out + 8, _mm_unpackhi_epi8(bytes, zero));
}

/// Takes 8 sequences of two bytes as 8 code points; gives how many of the first of them there
/// really are. The rest of what it writes has no meaning.
inline int widenPairs(uint32_t *out, __m128i bytes) {
    __m128i marks = _mm_and_si128(bytes, _mm_set1_epi16(int16_t(0xC0E0)));
    __m128i pairs = _mm_cmpeq_epi16(marks, _mm_set1_epi16(int16_t(0x80C0)));
    __m128i high = _mm_slli_epi16(_mm_and_si128(bytes, _mm_set1_epi16(0x1F)), 6);
    __m128i low = _mm_and_si128(_mm_srli_epi16(bytes, 8), _mm_set1_epi16(0x3F));
    widen8(out, _mm_or_si128(high, low));
    return std::countr_one(unsigned(_mm_movemask_epi8(pairs))) / 2;
}

/// Writes 16 code points as bytes; gives how many of the first of them are ASCII and so right.
inline int narrow16(uint8_t *out, const uint32_t *at) {
    __m128i high = _mm_set1_epi32(~0x7F), zero = _mm_setzero_si128();
    __m128i a = load16(at), b = load16(at + 4), c = load16(at + 8), d = load16(at + 12);
    store16(out, _mm_packus_epi16(_mm_packs_epi32(a, b), _mm_packs_epi32(c, d)));
    auto isAscii = [&](__m128i chars) { return _mm_cmpeq_epi32(_mm_and_si128(chars, high), zero); };
    __m128i all = _mm_or_si128(_mm_or_si128(a, b), _mm_or_si128(c, d));
    if (_mm_movemask_epi8(isAscii(all)) == 0xFFFF) return 16;
    __m128i ascii = _mm_packs_epi16(_mm_packs_epi32(isAscii(a), isAscii(b)),
                                    _mm_packs_epi32(isAscii(c), isAscii(d)));
    return std::countr_one(notAscii16(ascii));
}

/// Writes 8 code points as sequences of two bytes; gives how many of the first of them are that.
inline int narrowPairs(uint8_t *out, const uint32_t *at) {
    __m128i chars = _mm_packs_epi32(load16(at), load16(at + 4));
    __m128i pairs = _mm_and_si128(_mm_cmpgt_epi16(chars, _mm_set1_epi16(0x7F)),
                                  _mm_cmplt_epi16(chars, _mm_set1_epi16(0x800)));
    __m128i lead = _mm_or_si128(_mm_srli_epi16(chars, 6), _mm_set1_epi16(0xC0));
    __m128i low = _mm_and_si128(chars, _mm_set1_epi16(0x3F));
    __m128i next = _mm_slli_epi16(_mm_or_si128(low, _mm_set1_epi16(0x80)), 8);
    store16(out, _mm_or_si128(lead, next));
    return std::countr_one(unsigned(_mm_movemask_epi8(pairs))) / 2;
}

/// Takes the next few characters, by what the first is, which is easy to predict. There must be 64
/// bytes: they are at least 16 characters, so that it may write 16 and keep fewer.
[[gnu::always_inline]] inline void widenStep(uint32_t *&out, const uint8_t *&at,
                                             const uint8_t *end) {
    if (*at >= 0xE0) {
        for (const uint8_t *stop = at + 24; at < stop && *at >= 0xE0;)
            *out++ = decodeUtf8(at, end);
    } else if (*at >= 0x80) {
        int pairs = widenPairs(out, load16(at));
        at += 2 * pairs, out += pairs;
        if (*at < 0x80) *out++ = *at++; // most often the end of a word
    } else if (unsigned mask = notAscii16(load16(at))) {
        int ascii = std::countr_zero(mask);
        widen16(out, load16(at));
        at += ascii, out += ascii;
        if (*at < 0xE0) *out++ = decodeUtf8(at, end); // often alone
    } else {
        widen16(out, load16(at));
        at += 16, out += 16;
    }
}

/// The way back; there must be 32 characters. False when one of them is none.
[[gnu::always_inline]] inline bool narrowStep(uint8_t *&out, const uint32_t *&at) {
    if (*at >= 0x800) {
        for (const uint32_t *stop = at + 16; at < stop && *at >= 0x800; ++at) {
            if (!isScalar(*at)) return false;
            out += encodeUtf8(out, *at);
        }
    } else if (*at >= 0x80) {
        int pairs = narrowPairs(out, at);
        at += pairs, out += 2 * pairs;
        if (*at < 0x80) *out++ = uint8_t(*at++);
    } else if (int ascii = narrow16(out, at); ascii < 16) {
        at += ascii, out += ascii;
        if (*at < 0x800) out += encodeUtf8(out, *at++);
    } else {
        at += 16, out += 16;
    }
    return true;
}

#endif

/// Skips ASCII; gives the first byte that is not, or `end`.
inline const uint8_t *skipAscii(const uint8_t *at, const uint8_t *end) {
#if defined(__SSE2__)
    for (; end - at >= 64; at += 64)
        if (notAscii16(_mm_or_si128(_mm_or_si128(load16(at), load16(at + 16)),
                                    _mm_or_si128(load16(at + 32), load16(at + 48)))))
            break;
    for (; end - at >= 16; at += 16)
        if (unsigned mask = notAscii16(load16(at))) return at + std::countr_zero(mask);
#endif
    while (end - at >= 8 && isAscii8(at))
        at += 8;
    while (at < end && *at < 0x80)
        ++at;
    return at;
}

/// Characters of well-formed UTF-8: the bytes that do not continue another.
inline int64_t countUtf8(const uint8_t *at, const uint8_t *end) {
    int64_t count = 0;
#if defined(__SSE2__)
    while (end - at >= 16) {
        // Each byte of the sum counts up to 255 blocks.
        const uint8_t *stop = at + (end - at < 255 * 16 ? (end - at) & ~ptrdiff_t{15} : 255 * 16);
        __m128i sum = _mm_setzero_si128();
        for (; at < stop; at += 16)
            sum = _mm_sub_epi8(sum, _mm_cmpgt_epi8(load16(at), _mm_set1_epi8(int8_t(0xBF))));
        sum = _mm_sad_epu8(sum, _mm_setzero_si128());
        count += _mm_cvtsi128_si64(sum) + _mm_cvtsi128_si64(_mm_unpackhi_epi64(sum, sum));
    }
#endif
    for (; at < end; ++at)
        count += int8_t(*at) > int8_t(0xBF);
    return count;
}

/// Writes the code points of well-formed UTF-8, exactly as many as countUtf8() tells, and gives
/// the end of what it wrote.
inline uint32_t *widenUtf8(uint32_t *out, const uint8_t *at, const uint8_t *end) {
#if defined(__SSE2__)
    while (end - at >= 64)
        widenStep(out, at, end);
    for (; end - at >= 16 && !notAscii16(load16(at)); at += 16, out += 16)
        widen16(out, load16(at));
    for (; end - at >= 8 && isAscii8(at); at += 8, out += 8)
        widen8(out, _mm_unpacklo_epi8(load8(at), _mm_setzero_si128()));
#endif
    while (at < end)
        *out++ = decodeUtf8(at, end);
    return out;
}

/// How far code points were written as UTF-8.
struct Narrowed {
    uint8_t *out;       ///< The end of what was written.
    const uint32_t *at; ///< The first code point that was not.
};

/// Writes code points as UTF-8, up to the first that is a surrogate or above U+10FFFF. Needs room
/// for four bytes for each, which it may write to.
inline Narrowed narrowToUtf8(uint8_t *out, const uint32_t *at, const uint32_t *end) {
#if defined(__SSE2__)
    while (end - at >= 32)
        if (!narrowStep(out, at)) return {out, at};
    // Four at a time what is too short for a step, as most names and values are.
    for (const __m128i zero = _mm_setzero_si128(); end - at >= 4; at += 4, out += 4) {
        __m128i chars = load16(at);
        __m128i high = _mm_and_si128(chars, _mm_set1_epi32(~0x7F));
        if (_mm_movemask_epi8(_mm_cmpeq_epi32(high, zero)) != 0xFFFF) break;
        __m128i packed = _mm_packus_epi16(_mm_packs_epi32(chars, zero), zero);
        int32_t bytes = _mm_cvtsi128_si32(packed);
        std::memcpy(out, &bytes, sizeof(bytes));
    }
#endif
    for (; at < end && isScalar(*at); ++at)
        out += encodeUtf8(out, *at);
    return {out, at};
}

} // namespace vo
