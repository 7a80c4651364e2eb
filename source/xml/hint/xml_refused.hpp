// An input that was refused, and what can be seen of it all the same.
#pragma once

#include "source/xml/base/xml_input.hpp"
#include "source/xml/hint/xml_markup.hpp"

#include <array>
#include <string_view>

namespace xml {

struct Refused {
    explicit Refused(voBuffer *bytes);

    /// Empty when the bytes are no text in their character set.
    std::string_view text() const { return input.text.bytes(); }

    bool hasDeclaration() const { return declaration.buffer; }

    /// Whether the declaration ends within the head of the input.
    bool hasWholeDeclaration() const { return contains(settings(), 0, "?>"); }

    std::string_view declaredEncoding() const { return xml::declaredEncoding(declaration); }

    /// Whether the declaration names an encoding in which it could not be read itself.
    bool contradictsItself() const;

    /// The offset in `xml` of a place in the text; -1 when that is not known.
    int64_t byteOffset(size_t place) const;

    voBuffer *xml; ///< Borrowed.
    Declaration declaration;
    Input input;

  private:
    std::string_view settings() const { return declaration.settings.bytes(); }
};

/// In which byte orders an input in this character set may be; the same one twice if there is one.
std::array<voCharset, 2> byteOrdersOf(voCharset charset);

/// The offset in bytes of a character of UTF-8, which may be the end; npos behind that.
size_t placeOfChar(std::string_view text, int64_t index);

} // namespace xml
