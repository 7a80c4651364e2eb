// The UTF-8 that a cursor returns.
#pragma once

#include "source/vo/vo_array.hpp"
#include "source/vo/vo_utf.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "source/xml/base/xml_reference.hpp"
#include "vo/vo_memory.h"
#include "xml/xml_cursor.h"

namespace xml {

inline XML_UTF8 utf8Of(Piece piece) {
    return {reinterpret_cast<const char *>(piece.begin), piece.size()};
}

inline constexpr XML_UTF8 noUtf8{nullptr, 0};

/// Whether a piece of a text that ends at `textEnd` has an ampersand. Most pieces are short.
inline bool hasReference(Piece piece, [[maybe_unused]] const uint8_t *textEnd) {
#if defined(__SSE2__)
    const auto found = [wanted = _mm_set1_epi8('&')](const uint8_t *at) {
        return vo::notAscii16(_mm_cmpeq_epi8(vo::load16(at), wanted));
    };
    if (piece.size() >= 16) {
        for (const uint8_t *at = piece.begin; at < piece.end - 16; at += 16)
            if (found(at)) return true;
        return found(piece.end - 16);
    }
    if (textEnd - piece.begin >= 16) return found(piece.begin) & ((1U << piece.size()) - 1);
#endif
    return findAny(piece.begin, piece.end, '&', '&', '&') < piece.end;
}

/// Memory for one text, which grows with the longest.
class TextRoom {
  public:
    TextRoom() = default;
    TextRoom(const TextRoom &) = delete;
    TextRoom &operator=(const TextRoom &) = delete;
    ~TextRoom() { voMemFree(bytes); }

    /// Room for `count` bytes, which are not set; never null.
    uint8_t *reserve(int64_t count) {
        if (bytes && count <= room) return bytes;
        voMemFree(bytes);
        room = roomFor(count);
        bytes = static_cast<uint8_t *>(voMemAllocN(room, 1));
        return bytes;
    }

  private:
    static int64_t roomFor(int64_t count) {
        constexpr int64_t least = 64;
        return count + count / 2 + least;
    }

    uint8_t *bytes = nullptr;
    int64_t room = 0;
};

/// A string as UTF-8.
class StringText {
  public:
    /// Converts the string, unless it is the one that was converted last, which must still exist.
    XML_UTF8 of(voString *string) {
        if (string != known) {
            text = convert(string);
            known = string;
        }
        return utf8Of(text);
    }

    void forget() { known = nullptr; }

    /// Whether no code point had to be replaced so far.
    bool isExact() const { return exact; }

  private:
    Piece convert(voString *string) {
        const uint32_t *chars = string->items(), *end = chars + string->length;
        uint8_t *begin = room.reserve(4 * string->length);
        vo::Narrowed done = vo::narrowToUtf8(begin, chars, end);
        while (done.at < end) {
            exact = false;
            done.out += vo::encodeUtf8(done.out, vo::replacementChar);
            done = vo::narrowToUtf8(done.out, done.at + 1, end);
        }
        return {begin, done.out};
    }

    TextRoom room;
    Piece text{};
    voString *known = nullptr;
    bool exact = true;
};

/// Escaped text with its references resolved.
class PlainText {
  public:
    /// None where the text refers to an entity that is not predefined.
    [[gnu::noinline]] XML_UTF8 of(Piece escaped) {
        // No reference is shorter than what it stands for.
        uint8_t *begin = room.reserve(escaped.size());
        Output out{begin};
        const std::span text(escaped.begin, escaped.end);
        return unescape(text, out) ? utf8Of({begin, out.at}) : noUtf8;
    }

  private:
    struct Output {
        uint8_t *at;

        void put(std::span<const uint8_t> bytes) {
            std::memcpy(at, bytes.data(), bytes.size());
            at += bytes.size();
        }
        void put(uint32_t ch) {
            at += vo::encodeUtf8(at, vo::isScalar(ch) ? ch : vo::replacementChar);
        }
    };

    TextRoom room;
};

} // namespace xml
