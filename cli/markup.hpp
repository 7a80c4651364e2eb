// Markup as it stands in a text: tags, what is open, references.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace tool {

// Texts are UTF-8; places are offsets in bytes.

/// Between the place of a character in bytes and in characters. What lies behind the end is there.
size_t byteOf(std::string_view text, size_t character);
size_t characterOf(std::string_view text, size_t byte);

bool isQuote(char ch);
bool isXmlSpace(char ch);

/// Behind the white space at `at`.
size_t skipXmlSpace(std::string_view text, size_t at);

/// Whether a text begins with an XML declaration, with white space in front or not.
bool isDeclaration(std::string_view text);

/// The encoding that such a declaration names; empty without one.
std::string_view declaredEncoding(std::string_view text);

/// The name of the tag whose "<" stands at `tag`.
std::string_view tagName(std::string_view text, size_t tag);

/// Behind the ">" of a tag, or the end of the text. A ">" in quotes does not count.
size_t endOfTag(std::string_view text, size_t tag);

/// What a place in a text lies within.
struct Surroundings {
    std::vector<size_t> open; ///< The start tags of the elements that are open, outermost first.
    size_t markup = std::string_view::npos; ///< The markup around the place; npos in a text,
    size_t textBegin = 0;                   ///< which begins here.
};

/// The text in front of `at` must be right. Markup that begins at `at` is not around it.
Surroundings surroundingsOf(std::string_view text, size_t at);

/// A reference from "&" to ";"; the "&" alone where nothing ends it.
std::string_view referenceAt(std::string_view text, size_t at);

} // namespace tool
