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

  private:
    static constexpr unsigned shift(size_t i) {
        return unsigned(8 * (order == std::endian::big ? sizeof(Unit) - 1 - i : i));
    }
};

template <std::endian order> struct Utf16 : Units<uint16_t, order> {
    using Units<uint16_t, order>::get;
    using Units<uint16_t, order>::put;

    static uint32_t next(const uint8_t *&at, const uint8_t *end) {
        if (end - at < 2) return cutOff;
        uint32_t unit = get(at);
        at += 2;
        if (isScalar(unit)) return unit;
        if (unit >= 0xDC00) return illFormed;
        if (end - at < 2) return cutOff;
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
};

template <std::endian order> struct Utf32 : Units<uint32_t, order> {
    static uint32_t next(const uint8_t *&at, const uint8_t *end) {
        if (end - at < 4) return cutOff;
        uint32_t ch = Utf32::get(at);
        at += 4;
        return isScalar(ch) ? ch : illFormed;
    }

    static uint8_t *write(uint8_t *out, uint32_t ch) { return Utf32::put(out, ch); }
};

constexpr ptrdiff_t blockSize = 16384;

/// The end of the block at `at`; the last character of a block may reach into the next.
const uint8_t *blockEnd(const uint8_t *at, const uint8_t *end) {
    return end - at < blockSize ? end : at + blockSize;
}

template <class Form> bool decodeForm(Bytes bytes, bool lenient, BufferBuilder &out) {
    const uint8_t *at = bytes.data(), *end = at + bytes.size();
    while (at < end) {
        const uint8_t *stop = blockEnd(at, end);
        uint8_t *to = out.reserve(2 * blockSize);
        while (at < stop) {
            uint32_t ch = Form::next(at, end);
            if (ch >= cutOff && !lenient) return false;
            if (ch == cutOff) return out.wrote(to), true;
            to += encodeUtf8(to, ch == illFormed ? replacementChar : ch);
        }
        out.wrote(to);
    }
    return true;
}

template <class Form> bool encodeForm(Bytes utf8, BufferBuilder &out) {
    const uint8_t *at = utf8.data(), *end = at + utf8.size();
    while (at < end) {
        const uint8_t *stop = blockEnd(at, end);
        uint8_t *to = out.reserve(4 * blockSize);
        while (at < stop)
            to = Form::write(to, decodeUtf8(at, end));
        out.wrote(to);
    }
    return true;
}

} // namespace

bool decodeUnits(voCharset charset, Bytes bytes, bool lenient, BufferBuilder &out) {
    switch (charset) {
    case VO_CHARSET_UTF_16BE:
        return decodeForm<Utf16<std::endian::big>>(bytes, lenient, out);
    case VO_CHARSET_UTF_16LE:
        return decodeForm<Utf16<std::endian::little>>(bytes, lenient, out);
    case VO_CHARSET_UTF_32BE:
        return decodeForm<Utf32<std::endian::big>>(bytes, lenient, out);
    case VO_CHARSET_UTF_32LE:
        return decodeForm<Utf32<std::endian::little>>(bytes, lenient, out);
    default:
        VO_UNREACHABLE();
    }
}

bool encodeUnits(voCharset charset, Bytes utf8, BufferBuilder &out) {
    switch (charset) {
    case VO_CHARSET_UTF_16BE:
        return encodeForm<Utf16<std::endian::big>>(utf8, out);
    case VO_CHARSET_UTF_16LE:
        return encodeForm<Utf16<std::endian::little>>(utf8, out);
    case VO_CHARSET_UTF_32BE:
        return encodeForm<Utf32<std::endian::big>>(utf8, out);
    case VO_CHARSET_UTF_32LE:
        return encodeForm<Utf32<std::endian::little>>(utf8, out);
    default:
        VO_UNREACHABLE();
    }
}

} // namespace vo
