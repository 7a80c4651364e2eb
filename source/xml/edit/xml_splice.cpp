#include "source/xml/edit/xml_splice.hpp"

#include "source/vo/vo_buffer_builder.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "source/xml/hint/xml_refused.hpp"

#include <algorithm>

using vo::Ref;

namespace xml {
namespace {

Ref<voBuffer> bufferOf(std::string_view bytes) {
    return Ref(voBufferCreateFromBytesCopy(bytes.data(), int64_t(bytes.size())));
}

Ref<voBuffer> encoded(std::string_view text, voCharset charset) {
    return Ref(vo___Utf8TryEncode(charset, bufferOf(text), 0));
}

/// Follows a text through the bytes that it was read from. Most bytes are what encoding their text
/// gives. Where they are not, since the character set has several bytes for one character, the
/// text is divided until only such characters are left, and those are found by decoding bytes.
class Follower {
  public:
    Follower(voBuffer *input, voCharset inputCharset)
        : bytes(vo::bytesOf(input)), charset(inputCharset) {
        if (Ref mark = encoded("\xEF\xBB\xBF", charset)) (void)skipEqual(vo::bytesOf(mark));
    }

    /// Steps over the bytes that stand for `text`; false where that is not known.
    bool skip(std::string_view text) {
        struct Part {
            std::string_view text;
        };
        vo::Vec<Part> rest{{text}};
        while (!rest.empty()) {
            const std::string_view part = rest.back().text;
            rest.pop_back();
            if (skipEncoded(part)) continue;
            const size_t middle = middleOf(part);
            if (middle == part.size()) {
                if (!skipOtherwise(part)) return false;
                continue;
            }
            rest.push_back({part.substr(middle)});
            rest.push_back({part.substr(0, middle)});
        }
        return true;
    }

    size_t offset() const { return at; }
    vo::Bytes between(size_t from, size_t to) const { return bytes.subspan(from, to - from); }
    vo::Bytes rest() const { return bytes.subspan(at); }

  private:
    bool skipEncoded(std::string_view text) {
        if (text.empty()) return true;
        Ref expected = encoded(text, charset);
        return expected && skipEqual(vo::bytesOf(expected));
    }

    bool skipEqual(vo::Bytes expected) {
        if (bytes.size() - at < expected.size() ||
            !std::equal(expected.begin(), expected.end(), bytes.begin() + ptrdiff_t(at)))
            return false;
        at += expected.size();
        return true;
    }

    /// Where a character begins in the middle of a text; the end for a text of one.
    static size_t middleOf(std::string_view text) {
        const auto begins = [&](size_t place) { return (uint8_t(text[place]) & 0xC0) != 0x80; };
        size_t middle = std::max<size_t>(text.size() / 2, 1);
        while (middle < text.size() && !begins(middle))
            ++middle;
        if (middle < text.size()) return middle;
        for (middle = text.size() / 2; middle > 0 && !begins(middle);)
            --middle;
        return middle > 0 ? middle : text.size();
    }

    /// Other bytes that stand for one character.
    bool skipOtherwise(std::string_view character) {
        constexpr size_t most = 8;
        for (size_t size = 1; size <= std::min(most, bytes.size() - at); ++size) {
            const vo::Bytes candidate = bytes.subspan(at, size);
            Ref buffer(voBufferCreateFromBytesCopy(candidate.data(), int64_t(size)));
            Ref text(voCharsetTryConvertBufferToUtf8WithFlags(charset, buffer, 0));
            if (!text || pieceOf(text).bytes() != character) continue;
            at += size;
            return true;
        }
        return false;
    }

    vo::Bytes bytes;
    voCharset charset;
    size_t at = 0;
};

std::string_view between(Piece text, uint64_t from, uint64_t to) {
    return text.bytes().substr(from, to - from);
}

Splice splicedIn(voBuffer *input, voCharset charset, Piece text,
                 std::span<const Replacement> plan) {
    Follower follower(input, charset);
    vo::BufferBuilder out;
    size_t copied = 0;
    uint64_t last = 0;
    for (const Replacement &next : plan) {
        if (!follower.skip(between(text, last, next.from))) return {};
        out.append(follower.between(copied, follower.offset()));
        Ref added = encoded(next.text, charset);
        if (!added) return {{}, next.edit};
        out.append(vo::bytesOf(added));
        if (!follower.skip(between(text, next.from, next.to))) return {};
        copied = follower.offset();
        last = next.to;
    }
    out.append(follower.rest());
    return {Ref(out.take())};
}

} // namespace

bool fits(std::string_view text, voCharset charset) {
    return charset == VO_CHARSET_UTF_8 || encoded(text, charset);
}

Ref<voBuffer> splicedText(Piece before, Piece text, std::span<const Replacement> plan) {
    vo::BufferBuilder out;
    out.append({before.begin, before.end});
    const uint8_t *last = text.begin;
    for (const Replacement &next : plan) {
        out.append({last, text.begin + next.from});
        out.append({reinterpret_cast<const uint8_t *>(next.text.data()), next.text.size()});
        last = text.begin + next.to;
    }
    out.append({last, text.end});
    return Ref(out.take());
}

Splice spliced(voBuffer *input, voCharset charset, Piece text, std::span<const Replacement> plan) {
    const auto [first, second] = byteOrdersOf(charset);
    Splice result = splicedIn(input, first, text, plan);
    if (result.bytes || result.misfit >= 0 || first == second) return result;
    return splicedIn(input, second, text, plan);
}

} // namespace xml
