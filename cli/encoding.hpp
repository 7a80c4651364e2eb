// The character set of an input, for looking at inputs that were refused.
#pragma once

#include "text.hpp"

#include <optional>

namespace tool {

/// How an input says it is encoded.
struct Encoding {
    bool hasDeclaration = false; ///< It begins with an XML declaration.
    std::string declared;        ///< The encoding named there, if any.
    bool isKnown = false;        ///< It is a character set of the library.
    bool isWhole = false;        ///< The declaration ends within the head of the input.
    voCharset charset = VO_CHARSET_UTF_8;
    voCharset readable = VO_CHARSET_UTF_8; ///< In which the declaration could be read.

    /// Whether the declaration names an encoding in which it could not be read itself.
    bool contradictsItself() const;
};

/// How many bytes of an input are looked at to find its declaration.
constexpr int64_t headLength = 1024;

/// The start of an input, in which its declaration is looked for.
Ref<voBuffer> headOf(voBuffer *input);

/// Finds the character set as the decoder does.
Encoding encodingOf(voBuffer *input);

/// An input and what can be seen of it without decoding.
struct Source {
    explicit Source(voBuffer *input);

    Chars text() const { return string ? chars(string) : Chars(); }

    voBuffer *bytes; ///< Borrowed.
    Encoding encoding;
    Ref<voString> string; ///< Empty when the bytes are ill-formed in that character set.
};

/// The place of the first ill-formed sequence of UTF-8.
struct IllFormed {
    int64_t byteOffset;
    int64_t line;
    int64_t column;
};
std::optional<IllFormed> firstIllFormed(voBuffer *utf8);

} // namespace tool
