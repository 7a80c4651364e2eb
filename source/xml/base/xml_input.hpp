// From bytes to text: which character set an input is in, and its text as UTF-8.
#pragma once

#include "source/vo/vo_object.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "vo/vo.h"

namespace xml {

struct Input {
    voCharset charset;
    vo::Ref<voBuffer> buffer; ///< Null when the input is not a text in `charset`.
    Piece text{}; ///< In the buffer: well-formed UTF-8, without a mark that the flags consume.
};

/// How much of an input is looked at to find its character set, in bytes.
inline constexpr int64_t headLength = 1024;

/// The start of an input, in which its declaration is looked for.
vo::Ref<voBuffer> headOf(voBuffer *bytes);

/// The XML declaration that an input begins with.
struct Declaration {
    voCharset readable;       ///< The character set in which it can be read.
    vo::Ref<voBuffer> buffer; ///< The head of the input in UTF-8; null without a declaration.
    Piece settings{};         ///< What follows the "<?xml" there, up to the end of the head.
};

Declaration findDeclaration(voBuffer *bytes);

/// The name of the encoding in a declaration, as it stands; empty where there is none.
std::string_view declaredEncoding(const Declaration &declaration);

/// Finds the character set by looking for an XML declaration and converts the input. UTF-8 is left
/// where it is.
Input readInput(voBuffer *bytes, voCharsetFlags flags);

} // namespace xml
