// Character sets by name.
#pragma once

#include "text.hpp"

#include <string>
#include <string_view>

namespace tool {

/// The character set of that name or alias, or -1.
voCharset charsetNamed(std::string_view name);

/// The character set whose name or alias comes closest, or -1 when none comes close.
voCharset closestCharset(std::string_view name);

std::string charsetName(voCharset charset);

/// A table of all character sets: id, name, aliases. Lines are broken to stay within the width.
std::string charsetTable(size_t width);

} // namespace tool
