#include "source/xml/hint/xml_ill_formed.hpp"

#include "source/vo/vo_buffer_builder.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "source/xml/hint/xml_refused.hpp"

#include <algorithm>
#include <string_view>

using vo::Ref;
using namespace std::string_view_literals;

namespace xml {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD"; // U+FFFD

/// Follows a text through the bytes that it was read from.
class Follower {
  public:
    Follower(voBuffer *input, voCharset inputCharset)
        : bytes(vo::bytesOf(input)), charset(inputCharset) {
        Ref mark(vo___Utf8TryEncode(charset, Ref(voBufferCreate()), VO_CHARSET_FLAG_BOM));
        if (mark) (void)skip(vo::bytesOf(mark));
    }

    /// Steps over the bytes that encode `text`; false when others stand there.
    bool skip(std::string_view text) {
        Ref utf8(voBufferCreateFromBytesCopy(text.data(), int64_t(text.size())));
        Ref encoded(vo___Utf8TryEncode(charset, utf8, 0));
        return encoded && skip(vo::bytesOf(encoded));
    }

    int64_t offset() const { return int64_t(at); }

  private:
    bool skip(vo::Bytes expected) {
        const vo::Bytes rest = bytes.subspan(at);
        if (rest.size() < expected.size() ||
            !std::equal(expected.begin(), expected.end(), rest.begin()))
            return false;
        at += expected.size();
        return true;
    }

    vo::Bytes bytes;
    voCharset charset;
    size_t at = 0;
};

/// Where the text stops following from the bytes, and where that is in the bytes, or -1.
struct Stop {
    size_t place;
    int64_t offset;
};

/// A U+FFFD of the input itself does not stop it.
Stop follow(std::string_view text, Follower bytes) {
    for (size_t at = 0;; at += replacement.size()) {
        const size_t end = std::min(text.find(replacement, at), text.size());
        const bool isKnown = bytes.skip(text.substr(at, end - at));
        at = end;
        if (isKnown && at < text.size() && bytes.skip(replacement)) continue;
        return {at, isKnown ? bytes.offset() : -1};
    }
}

} // namespace

Ref<voBuffer> readLeniently(voBuffer *xml, voCharset charset) {
    return Ref(voCharsetTryConvertBufferToUtf8WithFlags(
        charset, xml, VO_CHARSET_FLAG_BOM | VO_CHARSET_FLAG_SNIFF));
}

voCharset charsetByBeginning(voBuffer *xml) {
    static constexpr std::string_view beginnings[] = {"\xFE\xFF"sv, "\xFF\xFE"sv, "<\0"sv, "\0<"sv};
    const std::string_view bytes = pieceOf(xml).bytes();
    const bool isUtf16 = std::ranges::any_of(
        beginnings, [bytes](std::string_view beginning) { return bytes.starts_with(beginning); });
    return isUtf16 ? VO_CHARSET_UTF_16 : VO_CHARSET_UTF_8;
}

IllFormed findIllFormed(voBuffer *xml, voCharset charset) {
    Ref text = readLeniently(xml, charset);
    const std::string_view chars = pieceOf(text).bytes();
    Stop stop{};
    // Escapes, which stand for no text, may come before what is ill-formed.
    const bool isStateful = charset == VO_CHARSET_ISO_2022_JP;
    for (voCharset order : byteOrdersOf(charset)) {
        stop = follow(chars, {xml, order});
        if (stop.offset >= 0) break;
    }
    return {std::move(text), stop.place, isStateful ? -1 : stop.offset};
}

} // namespace xml
