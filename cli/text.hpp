// Text: between the library's strings and UTF-8, and fit for a terminal.
#pragma once

#include "ref.hpp"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tool {

using Chars = std::span<const uint32_t>;

/// The characters of a string, valid while it is held unchanged.
Chars chars(voString *string);

/// The string that `utf8` encodes; the empty string when that is ill-formed.
Ref<voString> makeString(std::string_view utf8);
Ref<voString> makeString(Chars text);

/// UTF-8 of a text as it is; `take` also releases the string.
std::string utf8(Chars text);
std::string take(voString *string);

/// A number in hexadecimal, with at least so many digits.
std::string hex(uint32_t value, size_t least);

/// Whether the character is shown as itself. Controls, invisible formatting characters (which may
/// reorder what surrounds them) and what has no character are shown as escapes.
bool isPrintable(uint32_t ch);

/// The character as UTF-8, or as an escape like \n or \u{1B}.
std::string shown(uint32_t ch);
std::string shown(Chars text);

/// Bytes from outside, such as file names: ill-formed ones become \xNN.
std::string shown(std::string_view bytes);

/// The terminal columns of a character as shown; 0 for a combining character.
int shownWidth(uint32_t ch);

/// Whether the character ends a line.
bool isNewline(uint32_t ch);

} // namespace tool
