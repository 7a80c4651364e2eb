// Nodes to which routes lead, in document order.
#pragma once

#include "source/xml/path/xml_path_evaluation.hpp"

namespace xml {

/// Walks from the highest node at which a route begins through all below that routes may lead to.
/// For each node on the way down it knows which steps may be taken from there, so that no node is
/// visited or found twice, whatever the routes.
class PathWalk {
  public:
    /// Begins at the node on which the evaluation stands.
    PathWalk(PathEvaluation &evaluation, const Routes &routes);

    /// To the next node that is found; false when there is none left.
    bool next();

    /// Back to where it began.
    void leave();

  private:
    /// A place on a route, in front of a step that leads down or stays, or at the end.
    struct State {
        const Step *step; ///< Null at the end.
        size_t counter;   ///< Of the first condition.
    };
    /// Where a route leaves the way from the top of the walk to where it began.
    struct Entry {
        size_t depth, state;
    };
    /// What a sized step takes from a node on the way down.
    struct Taken {
        size_t depth, state;
        vo::Vec<int64_t> indexes;
        size_t next;
    };

    void addRoute(const Route &route);
    bool climbHead(const Route &route);
    void goDown(size_t depth);
    void goUp(size_t depth);

    bool step();
    bool enter(bool attributes);
    void forgetTaken();
    void arrive();
    void enterRoutes();
    void pass(size_t state);
    bool isTaken(size_t state);
    void stay();
    bool isFound() const;
    bool wants(const vo::Vec<uint64_t> &mask) const;
    bool leadsToStart() const;

    uint64_t *bitsAt(size_t depth) { return bits.data() + (depth - top) * words; }
    const uint64_t *bitsAt(size_t depth) const { return bits.data() + (depth - top) * words; }
    uint64_t *countersAt(size_t depth) { return counters.data() + (depth - top) * counterCount; }
    static bool has(const uint64_t *set, size_t state) { return set[state / 64] >> state % 64 & 1; }
    static void add(uint64_t *set, size_t state) { set[state / 64] |= uint64_t{1} << state % 64; }

    PathEvaluation &eval;
    PathNode &node;
    vo::Vec<State> states;
    vo::Vec<Entry> entries;
    vo::Vec<PathNode::Spot> way; ///< From the node's top to where the walk began.
    size_t onWay = 0;            ///< How far the current node and those above lie on that way.
    size_t top = 0;              ///< The depth of the node from which all others are reached.
    size_t words = 0, counterCount = 0;
    vo::Vec<uint64_t> deep, down, aside, ends, spot; ///< Sets of states, by what they lead to.
    vo::Vec<uint64_t> bits;     ///< For each level the states that the node is in.
    vo::Vec<uint64_t> counters; ///< For each level those of the conditions on nodes below.
    vo::Vec<Taken> sized;
    enum class Phase { before, walking, ended } phase = Phase::before;
};

} // namespace xml
