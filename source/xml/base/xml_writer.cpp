#include "source/xml/base/xml_writer.hpp"

#include "source/xml/base/xml_quoting.hpp"

#include <algorithm>

namespace xml {

void Writer::quoted(voString *value) {
    const uint32_t *at = value->items(), *const end = at + value->length;
    // Most values hold no quotation mark, so that the usual quotes fit.
    const bool isPlain = std::find(at, end, uint32_t{'"'}) == end;
    const Quoting quoting = isPlain ? Quoting{'"', 0} : quotingOf(at, end);
    const char delimiter = char(quoting.delimiter);
    ascii({&delimiter, 1});
    for (int64_t escapes = quoting.escapes; escapes > 0; --escapes) {
        const uint32_t *quote = std::find(at, end, quoting.delimiter);
        chars(at, quote);
        ascii(quoting.entity());
        at = quote + 1;
    }
    chars(at, end);
    ascii({&delimiter, 1});
}

void Writer::quoted(Piece value) {
    // It lacks the quote that it stood in, so none inside needs to be escaped.
    const std::string_view quote = value.bytes().find('"') == value.bytes().npos ? "\"" : "'";
    ascii(quote);
    bytes(value);
    ascii(quote);
}

} // namespace xml
