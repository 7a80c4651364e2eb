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

/// Whether a document is fine after all, whatever the decoder holds against it.
using Accepts = std::function<bool(const std::string &document)>;

/// The errors of a text, which may lack a declaration, but for those that `accepts` lifts.
Errors errorsBut(const Accepts &accepts, Chars text);

} // namespace tool
