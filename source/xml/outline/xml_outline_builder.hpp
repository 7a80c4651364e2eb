// From a text to its outline, or to what is wrong with it.
#pragma once

#include "source/xml/outline/xml_outline.hpp"
#include "xml/xml_decode_error_code.h"

namespace xml {

/// What came of reading a text: the outline, or a code and the place where the text is wrong.
struct OutlineResult {
    vo::Ref<Outline> outline;
    XML_DECODE_ERROR_CODE code;
    const uint8_t *place;
};

/// How the text is read. Both ways give the same result; tests compare them.
enum class Reading { fast, careful };

/// Checks a text and writes its outline. `text` must be well-formed UTF-8 in `buffer`; `charset` is
/// that of the document, unless its declaration is empty: then that is UTF-8.
OutlineResult buildOutline(voBuffer *buffer, Piece text, voCharset charset,
                           Reading reading = Reading::fast,
                           uint64_t mostCompact = mostCompactBytes);

} // namespace xml
