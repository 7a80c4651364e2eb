// Strings and numbers of paths.
#pragma once

#include "source/xml/path/xml_path_program.hpp"
#include "xml/xml_cursor.h"

namespace xml {

inline std::string_view viewOf(XML_UTF8 text) { return {text.bytes, size_t(text.length)}; }

/// Characters that are put together, in UTF-8.
class PathString {
  public:
    std::string_view view() const { return {chars.data(), chars.size()}; }
    void append(std::string_view text) { chars.insert(chars.end(), text.begin(), text.end()); }
    void clear() { chars.clear(); }

  private:
    vo::Vec<char> chars;
};

/// A decimal number with white space around it; NaN for any other text.
double numberOf(std::string_view text);

/// A number in decimal digits, without an exponent.
void appendNumber(PathString &out, double number);

bool areRelated(Relation relation, double left, double right);

/// Whether strings are equal, or not; the relation must be one of the two.
inline bool areRelated(Relation relation, std::string_view left, std::string_view right) {
    return (left == right) == (relation == Relation::equal);
}

} // namespace xml
