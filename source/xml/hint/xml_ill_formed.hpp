// Where the bytes of an input stop being a text.
#pragma once

#include "source/vo/vo_object.hpp"
#include "vo/vo.h"

namespace xml {

/// The first bytes of an input that are no text in its character set.
struct IllFormed {
    vo::Ref<voBuffer> text; ///< The input in UTF-8, with U+FFFD for what is ill-formed.
    size_t place;           ///< Where in the text they are, or its end: a character is cut off.
    int64_t offset;         ///< Where in the input; -1 when that is not known.
};

/// The input in UTF-8 without a byte-order mark, whatever its bytes. Each ill-formed sequence
/// becomes U+FFFD; a character that is cut off at the end is left out.
vo::Ref<voBuffer> readLeniently(voBuffer *xml, voCharset charset);

/// UTF-16 if the input begins with its mark or like markup in it, else UTF-8.
voCharset charsetByBeginning(voBuffer *xml);

/// `xml` must not be a text in `charset`.
IllFormed findIllFormed(voBuffer *xml, voCharset charset);

} // namespace xml
