// Lines that fit the terminal.
#pragma once

#include <string>
#include <string_view>

namespace tool {

/// Where text goes on, and where it is to stay within.
struct Margins {
    size_t column;      ///< How much of the first line is taken.
    size_t indentation; ///< Of the lines after it.
    size_t width;
};

/// The text, which must be ASCII, in lines broken between words; the last one does not end.
std::string wrapped(std::string_view text, Margins margins);

} // namespace tool
