// Which nodes of two documents correspond.
#pragma once

#include "node_table.hpp"

namespace tool {

/// One place where two documents differ. The nodes are such that each document can be read from
/// front to back: in neither does a difference lie before the one in front of it.
struct Difference {
    enum Kind {
        changed, ///< The two nodes correspond but are not equal, whatever they hold.
        removed, ///< The node of the first document has none in the second one.
        added    ///< The other way round.
    };

    Kind kind;
    size_t a, b; ///< Where one document lacks the node, the node that would hold it.
};

/// What makes the second document of the first one. Equal parts are passed over, so that time is in
/// proportion to the lists of items around differences. Where much differs, what is found is right
/// but may be more than necessary.
std::vector<Difference> differences(const NodeTable &a, const NodeTable &b);

} // namespace tool
