// Whether bytes are well-formed UTF-8.
#include "source/vo/vo_charset_codec.hpp"
#include "source/vo/vo_utf.hpp"

#if defined(__SSE2__) && defined(__GNUC__)
#include <tmmintrin.h>
#define VO_VECTOR_CHECK __attribute__((target("ssse3")))
#endif

namespace vo {

int utf8SequenceAt(const uint8_t *at, const uint8_t *end) {
    uint8_t lead = *at;
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return -1;
    int length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    // Narrower for the second byte where overlong forms, surrogates or too large values begin.
    uint8_t low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    uint8_t high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    for (int i = 1; i < length; ++i, low = 0x80, high = 0xBF) {
        if (at + i == end) return 0;
        if (at[i] < low || at[i] > high) return -i;
    }
    return length;
}

namespace {

bool validEach(const uint8_t *at, const uint8_t *end) {
    while ((at = skipAscii(at, end)) < end) {
        const uint8_t *stop = end - at < 64 ? end : at + 64;
        while (at < stop) {
            int length = utf8SequenceAt(at, end);
            if (length <= 0) return false;
            at += length;
        }
    }
    return true;
}

#if defined(VO_VECTOR_CHECK)

// 16 bytes at a time, after J. Keiser and D. Lemire, "Validating UTF-8 In Less Than One
// Instruction Per Byte". What can be wrong with two bytes in a row shows in both halves of the
// first and the high half of the second. Each half admits some of the faults; there is one where
// all three agree.
constexpr int tooShort = 1;      // a character does not go on
constexpr int tooLong = 2;       // ASCII goes on
constexpr int overlong2 = 4;     // C0 or C1
constexpr int overlong3 = 8;     // E0 80..9F
constexpr int overlong4 = 16;    // F0 80..8F
constexpr int tooLarge8 = 16;    // F5..FF 80..8F
constexpr int tooLarge = 32;     // F4..FF 90..BF
constexpr int surrogate = 64;    // ED A0..BF
constexpr int twoContinue = 128; // right only in the third and fourth places of a character
constexpr int any = tooShort | tooLong | twoContinue;

struct alignas(16) FaultTable {
    uint8_t faults[16];
};

/// A table from what is added for each half, 0 to 15.
template <class FaultsOf> constexpr FaultTable tabulate(FaultsOf faultsOf) {
    FaultTable table = {};
    for (int half = 0; half < 16; ++half)
        table.faults[half] = uint8_t(faultsOf(half));
    return table;
}

constexpr FaultTable firstHigh = tabulate([](int half) {
    if (half < 0xC) return half < 8 ? tooLong : twoContinue;
    return tooShort | (half == 0xC ? overlong2 : 0) | (half == 0xE ? overlong3 | surrogate : 0) |
           (half == 0xF ? overlong4 | tooLarge8 | tooLarge : 0);
});
constexpr FaultTable firstLow = tabulate([](int half) {
    return any | (half == 0 ? overlong3 | overlong4 : 0) | (half < 2 ? overlong2 : 0) |
           (half >= 4 ? tooLarge : 0) | (half >= 5 ? tooLarge8 : 0) | (half == 0xD ? surrogate : 0);
});
constexpr FaultTable secondHigh = tabulate([](int half) {
    if (half < 8 || half >= 0xC) return tooShort;
    return tooLong | twoContinue | overlong2 | (half == 8 ? overlong4 | tooLarge8 : tooLarge) |
           (half < 0xA ? overlong3 : surrogate);
});

VO_VECTOR_CHECK __m128i lookUp(const FaultTable &table, __m128i halves) {
    return _mm_shuffle_epi8(load16(table.faults), halves);
}

VO_VECTOR_CHECK __m128i highHalves(__m128i bytes) {
    return _mm_and_si128(_mm_srli_epi16(bytes, 4), _mm_set1_epi8(15));
}

/// The faults of each pair of bytes: a first and the second in the same place.
VO_VECTOR_CHECK __m128i pairFaults(__m128i first, __m128i second) {
    __m128i low = _mm_and_si128(first, _mm_set1_epi8(15));
    __m128i both = _mm_and_si128(lookUp(firstHigh, highHalves(first)), lookUp(firstLow, low));
    return _mm_and_si128(both, lookUp(secondHigh, highHalves(second)));
}

/// Not zero where there is a fault in a block or between it and the one before.
VO_VECTOR_CHECK __m128i blockFaults(__m128i before, __m128i block) {
    __m128i faults = pairFaults(_mm_alignr_epi8(block, before, 15), block);
    // Two bytes that continue are right exactly in the third and fourth places of a character.
    __m128i third = _mm_subs_epu8(_mm_alignr_epi8(block, before, 14), _mm_set1_epi8(0xE0 - 0x80));
    __m128i fourth = _mm_subs_epu8(_mm_alignr_epi8(block, before, 13), _mm_set1_epi8(0xF0 - 0x80));
    __m128i must = _mm_and_si128(_mm_or_si128(third, fourth), _mm_set1_epi8(int8_t(0x80)));
    return _mm_xor_si128(must, faults);
}

VO_VECTOR_CHECK bool validBlocks(const uint8_t *at, const uint8_t *end) {
    __m128i faults = _mm_setzero_si128(), before = faults;
    auto check = [&](__m128i block) VO_VECTOR_CHECK {
        faults = _mm_or_si128(faults, blockFaults(before, block));
        before = block;
    };
    for (; end - at >= 64; at += 64) {
        __m128i a = load16(at), b = load16(at + 16), c = load16(at + 32), d = load16(at + 48);
        check(a);
        if (notAscii16(_mm_or_si128(_mm_or_si128(a, b), _mm_or_si128(c, d))))
            check(b), check(c), check(d);
        else
            before = d;
    }
    for (; end - at >= 16; at += 16)
        check(load16(at));
    uint8_t tail[16] = {}; // the zeros end what is cut off
    std::memcpy(tail, at, size_t(end - at));
    check(load16(tail));
    return _mm_movemask_epi8(_mm_cmpeq_epi8(faults, _mm_setzero_si128())) == 0xFFFF;
}

#endif

} // namespace

bool validUtf8(Bytes bytes) {
    const uint8_t *end = bytes.data() + bytes.size();
    const uint8_t *at = skipAscii(bytes.data(), end);
#if defined(VO_VECTOR_CHECK)
    if (end - at >= 32 && __builtin_cpu_supports("ssse3")) return validBlocks(at, end);
#endif
    return validEach(at, end);
}

} // namespace vo
