// Several errors of one text.
#pragma once

#include "decode.hpp"
#include "text.hpp"

#include <functional>
#include <string>
#include <vector>

namespace tool {

/// How many errors of one input are told.
constexpr size_t mostErrors = 20;

struct Errors {
    std::vector<Failure> list;
    bool hasMore = false; ///< There are more than are told.
};

/// The error that a text is refused for, and those behind it that are there whatever the author
/// meant by what is wrong before: wrong references, and tags that do not match.
Errors errorsFrom(Failure first, Chars text);

/// Whether a document is well-formed XML 1.0.
using Accepts = std::function<bool(const std::string &document)>;

/// The errors of a text for all who read XML 1.0, as far as the decoder finds them. It may lack a
/// declaration. Wrong numbers in references and document type declarations are left to others.
Errors strictErrors(const Accepts &accepts, Chars text);

} // namespace tool
