// Where the nodes of a table are in their document.
#pragma once

#include "node_table.hpp"

namespace tool {

/// Finds nodes from front to back. Each node is passed once, by the way to those behind it.
class NodeFinder {
  public:
    NodeFinder(const Decoded &decoded, Comparison comparison, const NodeTable &nodes,
               const NameTable &nameTable);

    struct Found {
        std::string path; ///< As XPath has it, such as /a/b[2]/text(); long ones are shortened.
        std::optional<Place> place;
    };

    /// A node that was found, or holds the one that was found last, or is behind that. Only in the
    /// first and the last case the walker stands on it then.
    Found find(size_t node);

    NodeWalker &walker() { return at; }

  private:
    /// Items that a path tells apart by their positions.
    struct Count {
        uint32_t seen = 0, all = 0;
    };
    using Counts = std::unordered_map<uint64_t, Count>;

    /// A node on the way down, and its kind among its siblings, up to it.
    struct Level {
        size_t node;
        Counts counts;
        std::optional<Place> place; ///< Once the way leads on below it.
    };

    bool isIn(size_t node, const Level &level) const { return node < nodes[level.node].end; }
    void goTo(size_t node);
    void goDown();
    void goOn();
    uint64_t kindOf(size_t node) const;
    std::string pathTo(size_t level) const;
    std::string stepTo(const Level &level) const;

    NodeWalker at;
    const NodeTable &nodes;
    const NameTable &names;
    std::vector<Level> way;
};

} // namespace tool
