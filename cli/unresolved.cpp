#include "unresolved.hpp"

#include "cursor.hpp"
#include "text.hpp"

#include <algorithm>

namespace tool {

static bool isResolved(std::string_view reference) {
    Ref text(xmlTextCreateValue(makeString(reference)));
    return Ref(xmlTextTryUnescape(text));
}

/// The first reference of a value that refers to something undefined.
static std::string unresolvedIn(std::string_view escaped) {
    for (size_t at = 0; (at = escaped.find('&', at)) != escaped.npos; ++at) {
        const std::string_view reference = escaped.substr(at, escaped.find(';', at) + 1 - at);
        if (!isResolved(reference)) return std::string(reference);
    }
    return {};
}

std::optional<Unresolved> firstUnresolved(XML_DOCUMENT *document) {
    Ref cursor(xmlCursorCreate(document));
    std::optional<Unresolved> found;
    const auto look = [&] {
        const XML_UTF8 value = xmlCursorValue(cursor);
        if (!found && value.bytes && !xmlCursorValueTryUnescape(cursor).bytes)
            found = {unresolvedIn(view(value)), placeOf(cursor)};
    };
    const auto visit = [&](size_t) {
        look();
        visitAttributes(look, cursor);
    };
    walk(visit, cursor);
    return found;
}

} // namespace tool
