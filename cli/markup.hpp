// A second look at markup that the decoder has refused: it says where, this finds out why.
#pragma once

#include "text.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace tool {

enum class AttributeFault { none, noEquals, noQuote, notClosed, lessThan, badReference, duplicate };

struct Attribute {
    std::string name;
    Chars value;
};

/// The attributes up to the first fault. At a fault the last one is the one at fault.
struct AttributeScan {
    std::vector<Attribute> attributes;
    AttributeFault fault = AttributeFault::none;
    size_t end = 0; ///< Where no attribute begins any more; white space is skipped.
};

size_t skipSpace(Chars text, size_t at);
bool beginsWith(Chars text, size_t at, std::string_view ascii);
bool contains(Chars text, size_t at, std::string_view ascii);

/// The XML name at `at`; empty when there is none.
Chars nameAt(Chars text, size_t at);

/// The name of the tag whose `<` stands at `at`.
Chars tagNameAt(Chars text, size_t at);

AttributeScan scanAttributes(Chars text, size_t at);

} // namespace tool
