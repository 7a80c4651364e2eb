// A tree for people to read.
#pragma once

#include "decode.hpp"

namespace tool {

struct TreeWish {
    bool namespaces = false;
    bool locations = false;
};

/// Writes a decoded document to standard output: one node per line, indented.
void printTree(const Decoded &decoded, TreeWish wish);

} // namespace tool
