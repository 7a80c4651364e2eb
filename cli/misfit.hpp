// Why a text does not fit into a character set.
#pragma once

#include "decode.hpp"
#include "text.hpp"

namespace tool {

/// The first character of an input that a character set lacks.
struct Misfit {
    std::optional<Place> place; ///< Unknown when only the output has such a character.
    std::string text;
    std::string hint;
};

/// `text` is an input whose document does not fit into `charset`.
Misfit firstMisfit(Chars text, voCharset charset);

} // namespace tool
