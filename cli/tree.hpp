// A tree for people to read.
#pragma once

#include "decode.hpp"

namespace tool {

/// Writes a decoded document to standard output: one node per line, indented.
void printTree(const Decoded &decoded, DecodeWish wish);

} // namespace tool
