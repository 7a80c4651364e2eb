#include "source/xml/base/xml_writer.hpp"

#include "source/xml/base/xml_quoting.hpp"

#include <algorithm>
#include <string>

namespace xml {

void Writer::quoted(voString *value) {
    ascii("\"");
    const size_t begin = out.written().size();
    string(value);
    // Most values hold no quotation mark, so that the usual quotes fit.
    const vo::Bytes written = out.written().subspan(begin);
    if (std::memchr(written.data(), '"', written.size()))
        requote(begin);
    else
        ascii("\"");
}

void Writer::quoted(Piece value) {
    // It lacks the quote that it stood in, so none inside needs to be escaped.
    const std::string_view quote = value.bytes().find('"') == value.bytes().npos ? "\"" : "'";
    ascii(quote);
    bytes(value);
    ascii(quote);
}

/// Quotes the value that was written from `begin` on, behind a quotation mark, as it needs.
void Writer::requote(size_t begin) {
    const uint8_t *at = out.written().data() + begin;
    const std::string value(at, out.written().data() + out.written().size());
    const Quoting quoting = quotingOf(at, at + value.size());
    const char delimiter = char(quoting.delimiter);
    out.wrote(at - 1);
    ascii({&delimiter, 1});
    for (size_t from = 0; from <= value.size();) {
        const size_t quote = std::min(value.find(delimiter, from), value.size());
        ascii(std::string_view(value).substr(from, quote - from));
        if (quote < value.size()) ascii(quoting.entity());
        from = quote + 1;
    }
    ascii({&delimiter, 1});
}

} // namespace xml
