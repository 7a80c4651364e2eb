// The canonical layout of a part of the text that was decoded.
#pragma once

#include "source/xml/base/xml_writer.hpp"
#include "source/xml/outline/xml_outline.hpp"

namespace xml {

/// Writes the text between two offsets, which must both lie between nodes: the bytes as they are,
/// except for tags that are not in the canonical layout, which are written anew.
void writeText(const Outline &outline, uint64_t from, uint64_t to, Writer &out);

} // namespace xml
