// Nodes as XML.
#pragma once

#include "cursor.hpp"

#include <string>

namespace tool {

/// Appends the node of a cursor of a plain tree in the canonical layout. An element declares those
/// namespaces around it that it uses, so that it means the same on its own.
void appendMarkup(std::string &out, XML_CURSOR *cursor);

} // namespace tool
