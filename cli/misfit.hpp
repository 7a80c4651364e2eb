// Why a text does not fit into a character set.
#pragma once

#include "decode.hpp"
#include "text.hpp"

namespace tool {

/// The first character of an input that a character set lacks.
struct Misfit {
    std::optional<Place> place;
    std::string text;
    std::string hint;
};

/// The place of the character of that index, or of the end of the text.
std::optional<Place> placeAt(Chars text, size_t index);

/// `text` is that of an input whose document does not fit into its character set; it may be empty.
Misfit firstMisfit(voBuffer *input, Chars text, XML_DOCUMENT *document);

} // namespace tool
