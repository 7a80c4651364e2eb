// Character sets of East Asia.
#include "source/vo/vo_charset_codec.hpp"
#include "source/vo/vo_iconv.hpp"

namespace vo {
namespace {

/// Whether the bytes stand for exactly this text. Converters map some characters to similar ones
/// (the yen sign to the backslash), drop some (tags) and write some that they do not read back
/// (escape), without telling.
bool readBack(const char *name, Bytes bytes, Bytes utf8) {
    Converter back("UTF-8", name);
    if (!back) return false;
    bool same = true;
    auto compare = [&](Bytes piece) {
        same = same && piece.size() <= utf8.size() &&
               std::equal(piece.begin(), piece.end(), utf8.begin());
        if (same) utf8 = utf8.subspan(piece.size());
    };
    if (back.convert(bytes, compare) != Converter::Stop::atEnd) return false;
    back.flush(compare);
    return same && utf8.empty();
}

bool decodeMultibyte(voCharset charset, Bytes bytes, bool lenient, BufferBuilder &out) {
    Converter converter("UTF-8", charsetOf(charset).converter);
    if (!converter)
        return lenient && families::singleByte.decode(VO_CHARSET_US_ASCII, bytes, lenient, out);
    auto append = [&](Bytes piece) { out.append(piece); };
    while (converter.convert(bytes, append) == Converter::Stop::illFormed) {
        if (!lenient) return false;
        out.append(replacement);
        bytes = bytes.subspan(1);
    }
    converter.flush(append);
    return lenient || bytes.empty();
}

bool encodeMultibyte(voCharset charset, Bytes utf8, BufferBuilder &out) {
    const char *name = charsetOf(charset).converter;
    Converter converter(name, "UTF-8");
    if (!converter) return false;
    auto append = [&](Bytes piece) { out.append(piece); };
    Bytes rest = utf8;
    if (converter.convert(rest, append) != Converter::Stop::atEnd) return false;
    converter.flush(append);
    return readBack(name, out.written(), utf8);
}

} // namespace

constinit const Family families::eastAsian = {decodeMultibyte, encodeMultibyte};

} // namespace vo
