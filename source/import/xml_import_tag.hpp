// Start tags and references as they stand in a text that Expat has checked.
#pragma once

#include "source/import/xml_import_text.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "source/xml/base/xml_skip.hpp"

#include <algorithm>
#include <iterator>

namespace xml {

/// Walks through the attributes of a start tag.
class TagReader {
  public:
    struct Attribute {
        const uint8_t *name;
        std::string_view value; ///< Between the quotes.
    };

    /// The text begins with the "<" of the tag.
    explicit TagReader(Piece text) : at(skipName(text.begin + 1, text.end)), end(text.end) {}

    /// There must be one.
    Attribute next() {
        const uint8_t *name = skipS(at, end);
        const uint8_t *value = skipEq(skipName(name, end), end);
        const uint8_t *valueEnd = std::find(value + 1, end, *value);
        at = valueEnd + 1;
        return {name, Piece{value + 1, valueEnd}.bytes()};
    }

  private:
    const uint8_t *at;
    const uint8_t *end;
};

/// Whether a text refers to an entity, other than the predefined ones, for whose name `counts`.
template <class Counts> bool refersToEntity(std::string_view text, Counts counts) {
    constexpr std::string_view predefined[] = {"lt", "gt", "amp", "quot", "apos"};
    for (size_t at = text.find('&'); at != text.npos; at = text.find('&', at + 1)) {
        const std::string_view name = text.substr(at + 1, text.find(';', at) - at - 1);
        if (!name.starts_with('#') &&
            std::find(std::begin(predefined), std::end(predefined), name) == std::end(predefined) &&
            counts(name))
            return true;
    }
    return false;
}

/// Appends an attribute's value with its references as they stand and its white space normalized.
inline void appendKeepingReferences(Bytes &out, std::string_view value) {
    for (size_t at = 0; at < value.size(); ++at)
        if (!value.substr(at).starts_with("\r\n"))
            out += isSpace(uint8_t(value[at])) ? ' ' : value[at];
}

} // namespace xml
