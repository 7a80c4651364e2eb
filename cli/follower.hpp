// Following a selection in another tree of the same items.
#pragma once

#include "cursor.hpp"

#include <string>
#include <unordered_map>
#include <vector>

namespace tool {

/// A cursor that goes to what a selection from a document finds, in time that is linear over all.
class Follower {
  public:
    /// The cursor stands on a document. Only where nodes are counted, there are paths.
    Follower(XML_CURSOR *adopted, bool counts) : cursor(adopted), isCounting(counts) {}

    /// Goes to the node of the selection, or to the element of an attribute. What it finds must be
    /// followed from its beginning.
    void follow(XML_SELECTION *selection);

    XML_CURSOR *at() const { return cursor; }

    /// A path to the node: steps of kinds, names as {namespace}name, and positions.
    std::string path() const;

  private:
    struct Level {
        int64_t index = 0;                             ///< Of the item among its brothers.
        std::string step;                              ///< What it is in a path,
        std::unordered_map<std::string, int64_t> seen; ///< and how many there were of each.
        bool isInText = false;                         ///< Whether the item continues a text.
    };

    void enter();
    void count();

    Ref<XML_CURSOR> cursor;
    const bool isCounting;
    std::vector<Level> levels;
};

/// The step to the node of a cursor, without its position.
std::string stepTo(XML_CURSOR *cursor);

} // namespace tool
