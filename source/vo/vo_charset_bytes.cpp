// Character sets with one byte for a character and ASCII in the lower half.
#include "source/vo/vo_charset_codec.hpp"
#include "source/vo/vo_iconv.hpp"
#include "source/vo/vo_utf.hpp"

#include <array>

namespace vo {
namespace {

/// The characters of a character set by their bytes.
class ByteTable {
  public:
    static constexpr uint32_t none = UINT32_MAX;

    explicit ByteTable(voCharset charset) {
        chars.fill(none);
        for (uint32_t byte = 0; byte < (charset == VO_CHARSET_ISO_8859_1 ? 256 : 128); ++byte)
            chars[byte] = byte;
        if (const char *name = charsetOf(charset).converter) askConverter(name);
        if (charset == VO_CHARSET_MACINTOSH) {
            // The C library reads these as a Greek letter and another private-use character.
            chars[0xC6] = 0x2206;
            chars[0xF0] = 0xF8FF;
        }
    }

    bool isComplete() const { return complete; }
    uint32_t charOf(uint8_t byte) const { return chars[byte]; }

  private:
    /// Converts byte by byte, so that letters and accents are not composed: every byte has the one
    /// character that writes it.
    void askConverter(const char *name) {
        Converter converter("UTF-8", name);
        complete = bool(converter);
        if (!complete) return;
        for (uint32_t value = 128; value < 256; ++value) {
            uint8_t byte = uint8_t(value);
            Bytes in(&byte, 1);
            auto store = [&](Bytes utf8) {
                const uint8_t *at = utf8.data();
                const uint32_t ch = utf8.empty() ? none : decodeUtf8(at, at + utf8.size());
                if (ch <= 0xFFFF) chars[byte] = ch; // as CharTable relies on
            };
            converter.convert(in, store);
            converter.flush(store);
        }
    }

    bool complete = true;
    std::array<uint32_t, 256> chars;
};

/// The way back: pages of 64 characters, of which those without a byte share the first.
class CharTable {
  public:
    explicit CharTable(const ByteTable &table) {
        int used = 0;
        for (uint32_t byte = 1; byte < 256; ++byte) {
            uint32_t ch = table.charOf(uint8_t(byte));
            if (ch == ByteTable::none) continue;
            uint8_t &page = pageOf[ch / 64];
            if (!page) page = uint8_t(++used);
            bytes[page][ch % 64] = uint8_t(byte);
        }
    }

    /// The byte of a character other than NUL; 0 when there is none.
    uint8_t byteOf(uint32_t ch) const { return ch > 0xFFFF ? 0 : bytes[pageOf[ch / 64]][ch % 64]; }

  private:
    std::array<uint8_t, 1024> pageOf = {};
    uint8_t bytes[256][64] = {};
};

/// Appends the ASCII in front and gives the end of the next stretch, to be converted one by one.
const uint8_t *copyAscii(const uint8_t *&at, const uint8_t *end, BufferBuilder &out) {
    const uint8_t *stop = skipAscii(at, end);
    out.append({at, stop});
    at = stop;
    return end - at < 64 ? end : at + 64;
}

bool decodeBytes(voCharset charset, Bytes bytes, bool lenient, BufferBuilder &out) {
    const ByteTable table(charset);
    if (!table.isComplete() && !lenient) return false;
    const uint8_t *at = bytes.data(), *end = at + bytes.size();
    while (at < end) {
        const uint8_t *stop = copyAscii(at, end, out);
        uint8_t *to = out.reserve(3 * 64);
        for (; at < stop; ++at) {
            uint32_t ch = table.charOf(*at);
            if (ch == ByteTable::none && !lenient) return false;
            to += encodeUtf8(to, ch == ByteTable::none ? replacementChar : ch);
        }
        out.wrote(to);
    }
    return true;
}

bool encodeBytes(voCharset charset, Bytes utf8, BufferBuilder &out) {
    const ByteTable table(charset);
    if (!table.isComplete()) return false;
    const CharTable chars(table);
    const uint8_t *at = utf8.data(), *end = at + utf8.size();
    while (at < end) {
        const uint8_t *stop = copyAscii(at, end, out);
        uint8_t *to = out.reserve(64);
        while (at < stop) {
            uint32_t ch = decodeUtf8(at, end);
            uint8_t byte = chars.byteOf(ch);
            if (!byte && ch) return false;
            *to++ = byte;
        }
        out.wrote(to);
    }
    return true;
}

} // namespace

constinit const Family families::singleByte = {decodeBytes, encodeBytes};

} // namespace vo
