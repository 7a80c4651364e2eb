// What Expat says of a document.
#pragma once

#include <cstddef>
#include <string_view>

#include <expat.h>

namespace tool {

struct Verdict {
    XML_Error code = XML_ERROR_NONE;
    size_t at = 0;           ///< The byte that the error is about.
    bool hasDoctype = false; ///< There is one, and Expat has got no further.
};

/// Null as the encoding stands for the one that the document names. Takes time and memory in
/// proportion to the input, since it ends where entities could be declared.
Verdict judge(std::string_view bytes, const char *optionalEncoding);

} // namespace tool
