// The line of an input that a message is about.
#pragma once

#include "decode.hpp"
#include "text.hpp"

namespace tool {

/// The line at `place` and, below it, a caret under the character there; each ends in a newline.
/// The caret is right wherever tab stops are and whatever the widths of characters. A line that
/// needs more than `columns` is cut around the place.
std::string excerpt(Chars text, Place place, int columns);

} // namespace tool
