// A second look at markup that the decoder has refused: it says where, this finds out why.
#pragma once

#include "source/vo/vo_allocator.hpp"

#include <cstdint>
#include <string>
#include <string_view>

namespace xml {

/// A message in the making.
using Message = std::basic_string<char, std::char_traits<char>, vo::Allocator<char>>;

enum class AttributeFault { none, noEquals, noQuote, notClosed, lessThan, badReference, duplicate };

struct AttributeView {
    std::string_view name, value;
};

/// The attributes up to the first fault. At a fault the last one is the one at fault.
struct AttributeScan {
    vo::Vec<AttributeView> attributes;
    AttributeFault fault = AttributeFault::none;
    size_t faultAt = 0; ///< Where that shows: the attribute, or a reference in its value.
    size_t end = 0;     ///< Where no attribute begins any more; white space is skipped.
};

// Texts are UTF-8; places are offsets in bytes, which may lie behind the end.

size_t skipSpace(std::string_view text, size_t at);
bool beginsWith(std::string_view text, size_t at, std::string_view token);
bool contains(std::string_view text, size_t at, std::string_view token);

/// The character at `at`; empty at the end.
std::string_view charAt(std::string_view text, size_t at);

/// The XML name at `at`; empty when there is none.
std::string_view nameAt(std::string_view text, size_t at);

/// The name of the tag whose `<` stands at `at`.
std::string_view tagNameAt(std::string_view text, size_t at);

/// What looks like a character reference at `at`, with or without a semicolon; empty without
/// digits.
std::string_view charRefAt(std::string_view text, size_t at);

/// Whether a character reference that is right begins at `at`.
bool isCharRef(std::string_view text, size_t at);

/// Whether a line that separates the sides of a merge conflict begins at `at`.
bool isConflictMark(std::string_view text, size_t at);

/// The first "&" in an attribute's value that begins no reference; npos when there is none.
size_t badReferenceIn(std::string_view value);

AttributeScan scanAttributes(std::string_view text, size_t at);

} // namespace xml
