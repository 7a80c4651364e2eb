// Decoding an input, and what an input is refused for.
#pragma once

#include "ref.hpp"

#include "xml/xml.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tool {

/// A place in the decoded text.
struct Place {
    int64_t offset; ///< Characters from the start of the text.
    int64_t line;   ///< From 1.
    int64_t column; ///< Characters, from 1.
};

/// Nothing for a null location.
std::optional<Place> placeOf(voParserLocation *location);

/// Why an input was refused.
struct Failure {
    std::string code; ///< The name of the error code.
    std::string text;
    std::optional<Place> place;
    std::string hint; ///< Advice for the author of the input; may be empty, or quote the input.
    std::optional<Place> decoderPlace = {}; ///< Where the decoder saw it, perhaps further out.
};

struct DecodeWish {
    bool namespaces = false; ///< Decode the namespaces as well.
    bool locations = false;  ///< Record a location in every node.
    bool import = false;     ///< Take any well-formed XML document.
    bool describe = true;    ///< Find out where and why an input is refused, which takes time.
};

/// A decoded document, or why there is none.
struct Decoded {
    Ref<XML_DOCUMENT> document;
    Ref<XML_NS_DOCUMENT> nsDocument; ///< Empty unless wished for.
    std::optional<Failure> failure;
};

/// Decodes or imports, without locations unless they are wished for, which is faster. A failure
/// that is to be described has a place in either case.
Decoded decode(voBuffer *input, DecodeWish wish);

/// Options of the library with these flags.
Ref<XML_OPTIONS> optionsWith(XML_FLAGS flags);

} // namespace tool
