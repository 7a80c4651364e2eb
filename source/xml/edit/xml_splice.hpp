// Bytes in which parts of a text are replaced.
#pragma once

#include "source/vo/vo_object.hpp"
#include "source/xml/edit/xml_edit_plan.hpp"

namespace xml {

/// A part that is replaced in bytes.
struct Splice {
    vo::Ref<voBuffer> bytes; ///< Null when that is not possible:
    int64_t misfit = -1;     ///< the edit for which the character set lacks a character, or -1.
};

/// The text with the replacements, behind a piece that stays.
vo::Ref<voBuffer> splicedText(Piece before, Piece text, std::span<const Replacement> plan);

/// The bytes of an input with the replacements, where `text` is what the input stands for, perhaps
/// behind a byte-order mark. All other bytes stay.
Splice spliced(voBuffer *input, voCharset charset, Piece text, std::span<const Replacement> plan);

/// Whether a character set has all characters of a text.
bool fits(std::string_view text, voCharset charset);

} // namespace xml
