// What ends a line for an XML processor, and so in places.
#pragma once

#include "vo/vo_newline.h"

namespace xml {

inline constexpr voNlfFlags xmlNewlines = VO_NLF_FLAG_LF | VO_NLF_FLAG_CRLF | VO_NLF_FLAG_CR;

} // namespace xml
