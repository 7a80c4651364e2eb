// What is wrong with a document for other XML readers, in words.
#pragma once

#include "verdict.hpp"

#include <string>

namespace tool {

struct Finding {
    size_t at; ///< In bytes of the text.
    std::string text;
    std::string hint;
    bool isReference = false; ///< Nothing that follows can come of it.
};

/// `verdict` is about the text, which is UTF-8 and has no DOCTYPE.
Finding describe(std::string_view text, Verdict verdict);

/// For a text that is right, but in an encoding for which others refuse the document.
Finding describeEncoding(std::string_view text, XML_Error code);

} // namespace tool
