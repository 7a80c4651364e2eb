// From bytes to text: which character set an input is in, and its text as UTF-8.
#pragma once

#include "source/vo/vo_object.hpp"
#include "vo/vo.h"

namespace xml {

struct Input {
    voCharset charset;
    vo::Ref<voBuffer> utf8; ///< Well-formed. Null when the input is not a text in `charset`.
};

/// Finds the character set by looking for an XML declaration and converts the input.
Input readInput(voBuffer *bytes, voCharsetFlags flags);

} // namespace xml
