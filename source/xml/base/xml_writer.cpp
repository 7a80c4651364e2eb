#include "source/xml/base/xml_writer.hpp"

#include "source/xml/base/xml_document.hpp"
#include "source/xml/base/xml_quoting.hpp"

#include <algorithm>

namespace xml {

void Writer::declaration(XML_DOCUMENT *document) {
    ascii("<?xml");
    setting("version", document->version.get());
    setting("encoding", vo::Ref(voCharsetToIanaName(document->charset)));
    if (document->standalone) setting("standalone", vo::Ref(voStringCreateFromCstr("yes", -1)));
    ascii("?>");
}

void Writer::setting(std::string_view name, voString *value) {
    ascii(" ");
    ascii(name);
    ascii("=");
    quoted(value);
}

void Writer::quoted(voString *value) {
    const uint32_t *at = value->items(), *const end = at + value->length;
    // Most values hold no quotation mark, so that the usual quotes fit.
    if (std::find(at, end, uint32_t{'"'}) < end) return quotedAnyhow(at, end);
    ascii("\"");
    chars(at, end);
    ascii("\"");
}

void Writer::quoted(Piece value) {
    if (value.bytes().find('"') != value.bytes().npos) return quotedAnyhow(value.begin, value.end);
    ascii("\"");
    bytes(value);
    ascii("\"");
}

template <class Unit> void Writer::quotedAnyhow(const Unit *at, const Unit *end) {
    const Quoting quoting = quotingOf(at, end);
    const char delimiter = char(quoting.delimiter);
    ascii({&delimiter, 1});
    for (int64_t escapes = quoting.escapes; escapes > 0; --escapes) {
        const Unit *quote = std::find(at, end, Unit(quoting.delimiter));
        units(at, quote);
        ascii(quoting.entity());
        at = quote + 1;
    }
    units(at, end);
    ascii({&delimiter, 1});
}

} // namespace xml
