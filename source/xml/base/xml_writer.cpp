#include "source/xml/base/xml_writer.hpp"

#include "source/vo/vo_utf.hpp"
#include "source/xml/base/xml_quoting.hpp"

#include <algorithm>
#include <string>

namespace xml {

/// Characters converted in one go, which bounds how much room is made in advance.
constexpr int64_t stride = 4096;
constexpr int64_t longestUtf8 = 4;

void Writer::string(voString *string) {
    const uint32_t *at = string->items(), *end = at + string->length;
    while (at < end && wellFormed) {
        const uint32_t *stop = end - at > stride ? at + stride : end;
        uint8_t *out = room((stop - at) * longestUtf8);
        uint8_t *outEnd = vo::narrowToUtf8(out, at, stop);
        wellFormed = outEnd != nullptr;
        if (wellFormed) written += outEnd - out;
        at = stop;
    }
}

void Writer::quoted(voString *value) {
    ascii("\"");
    const int64_t begin = written;
    string(value);
    // Most values hold no quotation mark, so that the usual quotes fit.
    if (std::memchr(buffer->items() + begin, '"', size_t(written - begin)))
        requote(begin);
    else
        ascii("\"");
}

/// Quotes the value that was written from `begin` on, behind a quotation mark, as it needs.
void Writer::requote(int64_t begin) {
    const uint8_t *at = buffer->items() + begin;
    const std::string value(reinterpret_cast<const char *>(at), size_t(written - begin));
    const Quoting quoting = quotingOf(at, at + value.size());
    const char delimiter = char(quoting.delimiter);
    written = begin - 1;
    ascii({&delimiter, 1});
    for (size_t from = 0; from <= value.size();) {
        const size_t quote = std::min(value.find(delimiter, from), value.size());
        ascii(std::string_view(value).substr(from, quote - from));
        if (quote < value.size()) ascii(quoting.entity());
        from = quote + 1;
    }
    ascii({&delimiter, 1});
}

vo::Ref<voBuffer> Writer::finish() {
    if (!wellFormed) return {};
    vo::resizeArray(buffer.edit(), written);
    return std::move(buffer);
}

void Writer::grow(int64_t bytes) {
    vo::resizeArray(buffer.edit(), std::max(buffer->length * 2, written + bytes));
}

} // namespace xml
