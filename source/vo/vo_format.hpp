// Formatted text.
#pragma once

#include "vo/vo_string.h"

#include <cstdarg>

namespace vo {

/// What voStringAppendFormatCstr() does. Leaves it to the caller to end `args`.
void appendFormat(voString **str, const char *format, int64_t length, va_list args);

/// Appends a number in decimal digits.
void appendInt(voString **str, int64_t value);

} // namespace vo
