// UTF-16 and UTF-32.
#include "source/vo/vo_charset_codec.hpp"
#include "source/vo/vo_utf.hpp"

namespace vo {
namespace {

// What takes the place of a character where there is none.
constexpr uint32_t illFormed = UINT32_MAX;
constexpr uint32_t cutOff = UINT32_MAX - 1;

/// Code units of one size and byte order.
template <class T, std::endian order> struct Units {
    using Unit = T;

    static Unit get(const uint8_t *at) {
        uint32_t value = 0;
        for (size_t i = 0; i < sizeof(Unit); ++i)
            value |= uint32_t(at[i]) << shift(i);
        return Unit(value);
    }

    static uint8_t *put(uint8_t *out, uint32_t unit) {
        for (size_t i = 0; i < sizeof(Unit); ++i)
            out[i] = uint8_t(unit >> shift(i));
        return out + sizeof(Unit);
    }

    // Blocks of 16 characters, where there is a fast way: false when they are not all ASCII.
    static bool readAscii(uint8_t *, const uint8_t *) { return false; }
    static bool writeAscii(uint8_t *, const uint8_t *) { return false; }

  private:
    static constexpr unsigned shift(size_t i) {
        return unsigned(8 * (order == std::endian::big ? sizeof(Unit) - 1 - i : i));
    }
};

template <std::endian order> struct Utf16 : Units<uint16_t, order> {
    using Units<uint16_t, order>::get;
    using Units<uint16_t, order>::put;

    /// Takes one character, or nothing where `end` cuts it off, and then all that is left.
    static uint32_t next(const uint8_t *&at, const uint8_t *end) {
        if (end - at < 2) return at = end, cutOff;
        uint32_t unit = get(at);
        at += 2;
        if (isScalar(unit)) return unit;
        if (unit >= 0xDC00) return illFormed;
        if (end - at < 2) return at = end, cutOff;
        uint32_t low = get(at);
        if (low >> 10 != 0xDC00 >> 10) return illFormed;
        at += 2;
        return 0x10000 + ((unit & 0x3FF) << 10 | (low & 0x3FF));
    }

    static uint8_t *write(uint8_t *out, uint32_t ch) {
        if (ch < 0x10000) return put(out, ch);
        ch -= 0x10000;
        return put(put(out, 0xD800 | ch >> 10), 0xDC00 | (ch & 0x3FF));
    }

#if defined(__SSE2__)
    static bool readAscii(uint8_t *out, const uint8_t *at) {
        __m128i a = swapped(load16(at)), b = swapped(load16(at + 16));
        __m128i high = _mm_and_si128(_mm_or_si128(a, b), _mm_set1_epi16(int16_t(0xFF80)));
        store16(out, _mm_packus_epi16(a, b));
        return _mm_movemask_epi8(_mm_cmpeq_epi16(high, _mm_setzero_si128())) == 0xFFFF;
    }

    static bool writeAscii(uint8_t *out, const uint8_t *at) {
        __m128i bytes = load16(at), zero = _mm_setzero_si128();
        store16(out, swapped(_mm_unpacklo_epi8(bytes, zero)));
        store16(out + 16, swapped(_mm_unpackhi_epi8(bytes, zero)));
        return !notAscii16(bytes);
    }

  private:
    static __m128i swapped(__m128i units) {
        if (order == std::endian::little) return units;
        return _mm_or_si128(_mm_slli_epi16(units, 8), _mm_srli_epi16(units, 8));
    }
#endif
};

template <std::endian order> struct Utf32 : Units<uint32_t, order> {
    static uint32_t next(const uint8_t *&at, const uint8_t *end) {
        if (end - at < 4) return at = end, cutOff;
        uint32_t ch = Utf32::get(at);
        at += 4;
        return isScalar(ch) ? ch : illFormed;
    }

    static uint8_t *write(uint8_t *out, uint32_t ch) { return Utf32::put(out, ch); }
};

/// What a step of 16 characters writes at most, in any form.
constexpr size_t stepRoom = 64;

/// The end of a stretch of bytes; its last character may still reach into the next.
const uint8_t *stretch(const uint8_t *at, const uint8_t *end, ptrdiff_t length) {
    return end - at < length ? end : at + length;
}

template <class Form> bool decodeForm(voCharset, Bytes bytes, bool lenient, BufferBuilder &out) {
    constexpr ptrdiff_t step = 16 * sizeof(typename Form::Unit);
    const uint8_t *at = bytes.data(), *end = at + bytes.size();
    out.reserve(bytes.size() / sizeof(typename Form::Unit) + stepRoom);
    while (at < end) {
        uint8_t *to = out.reserve(stepRoom);
        if (end - at >= step && Form::readAscii(to, at)) {
            at += step;
            out.wrote(to + 16);
            continue;
        }
        for (const uint8_t *stop = stretch(at, end, step); at < stop;) {
            uint32_t ch = Form::next(at, end);
            if (ch >= cutOff && !lenient) return false;
            if (ch == cutOff) break; // and `at` is at the end
            to += encodeUtf8(to, ch == illFormed ? replacementChar : ch);
        }
        out.wrote(to);
    }
    return true;
}

template <class Form> bool encodeForm(voCharset, Bytes utf8, BufferBuilder &out) {
    const uint8_t *at = utf8.data(), *end = at + utf8.size();
    out.reserve(utf8.size() + stepRoom);
    while (at < end) {
        uint8_t *to = out.reserve(stepRoom);
        if (end - at >= 16 && Form::writeAscii(to, at)) {
            at += 16;
            out.wrote(to + 16 * sizeof(typename Form::Unit));
            continue;
        }
        for (const uint8_t *stop = stretch(at, end, 16); at < stop;)
            to = Form::write(to, decodeUtf8(at, end));
        out.wrote(to);
    }
    return true;
}

template <class Form> constexpr Family familyOf = {decodeForm<Form>, encodeForm<Form>};

} // namespace

constinit const Family families::utf16Be = familyOf<Utf16<std::endian::big>>;
constinit const Family families::utf16Le = familyOf<Utf16<std::endian::little>>;
constinit const Family families::utf32Be = familyOf<Utf32<std::endian::big>>;
constinit const Family families::utf32Le = familyOf<Utf32<std::endian::little>>;

} // namespace vo
