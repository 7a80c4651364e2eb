#include "markup.hpp"

#include "xml/xml.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace tool {

size_t skipSpace(Chars text, size_t at) {
    while (at < text.size() && isSpace(text[at]))
        ++at;
    return at;
}

bool beginsWith(Chars text, size_t at, std::string_view ascii) {
    return text.size() - at >= ascii.size() &&
           std::equal(ascii.begin(), ascii.end(), text.begin() + static_cast<ptrdiff_t>(at),
                      [](char a, uint32_t b) { return static_cast<unsigned char>(a) == b; });
}

bool contains(Chars text, size_t at, std::string_view ascii) {
    for (; at < text.size(); ++at)
        if (beginsWith(text, at, ascii)) return true;
    return false;
}

static bool isNameStart(uint32_t ch) { return xmlValueNameOk(makeString(Chars(&ch, 1))); }

static bool isNameChar(uint32_t ch) {
    const std::array<uint32_t, 2> name{'a', ch};
    return xmlValueNameOk(makeString(Chars(name)));
}

Chars nameAt(Chars text, size_t at) {
    at = std::min(at, text.size());
    size_t end = at;
    if (end < text.size() && isNameStart(text[end])) ++end;
    while (end > at && end < text.size() && isNameChar(text[end]))
        ++end;
    return text.subspan(at, end - at);
}

Chars tagNameAt(Chars text, size_t at) { return nameAt(text, skipSpace(text, at + 1)); }

static AttributeFault faultOf(Chars value) {
    if (std::find(value.begin(), value.end(), '<') != value.end()) return AttributeFault::lessThan;
    if (!xmlValueTextOk(makeString(value))) return AttributeFault::badReference;
    return AttributeFault::none;
}

/// Reads one attribute behind its name.
static AttributeFault scanValue(Chars text, size_t &at, Chars &value) {
    at = skipSpace(text, at);
    if (!beginsWith(text, at, "=")) return AttributeFault::noEquals;
    at = skipSpace(text, at + 1);
    if (!beginsWith(text, at, "\"") && !beginsWith(text, at, "'")) return AttributeFault::noQuote;
    const Chars rest = text.subspan(at + 1);
    const auto quote = std::find(rest.begin(), rest.end(), text[at]);
    value = rest.first(static_cast<size_t>(quote - rest.begin()));
    if (quote == rest.end()) return AttributeFault::notClosed;
    at += value.size() + 2;
    return faultOf(value);
}

AttributeScan scanAttributes(Chars text, size_t at) {
    AttributeScan scan;
    std::unordered_set<std::string> names;
    for (;;) {
        scan.end = at = skipSpace(text, at);
        const Chars name = nameAt(text, at);
        if (name.empty()) return scan;
        at += name.size();
        Attribute attribute{utf8(name), {}};
        scan.fault = scanValue(text, at, attribute.value);
        if (scan.fault == AttributeFault::none && !names.insert(attribute.name).second)
            scan.fault = AttributeFault::duplicate;
        scan.attributes.push_back(std::move(attribute));
        if (scan.fault != AttributeFault::none) return scan;
    }
}

} // namespace tool
