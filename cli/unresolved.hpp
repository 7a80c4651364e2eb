// References to entities that are not defined.
#pragma once

#include "decode.hpp"

namespace tool {

struct Unresolved {
    std::string reference;      ///< As it stands in the document.
    std::optional<Place> place; ///< Of its node, where places were recorded.
};

/// The first one in texts and attribute values.
std::optional<Unresolved> firstUnresolved(XML_DOCUMENT *document);

} // namespace tool
