// Conditions: questions about the node that evaluation stands on.
#pragma once

#include "source/xml/path/xml_path_node.hpp"

namespace xml {

/// How far a node has come among those that a condition is asked about.
struct Position {
    uint64_t position = 0;
    uint64_t size = 0; ///< Only of sized steps.
};

/// Answers the expressions of a program. Each call leaves the node where it was.
///
/// Recursion is bounded by the nesting of the expression. What a deep step finds below a node, and
/// what is asked at a parent, is kept by the number of the node, so that it is found out once.
class PathEvaluation {
  public:
    PathEvaluation(const PathProgram &evaluated, PathNode &moved)
        : program(evaluated), node(moved), memos(evaluated.memos) {}

    bool truth(ExprNumber expr, Position position);

    /// Whether the node, which has passed the test of a step that is not sized, meets its
    /// conditions. `counters` tell how many have met each of them so far.
    bool meets(const Step &step, uint64_t *counters);

    /// The indexes of all children or attributes that a sized step takes from the node, ascending.
    vo::Vec<int64_t> taken(const Step &step);

    PathNode &at() { return node; }

  private:
    /// What is known by the numbers of nodes.
    struct Memo {
        enum State : uint8_t { unknown, no, yes };
        vo::Vec<uint8_t> states; ///< Empty until the first is known.
        vo::Vec<double> values;  ///< Likewise.
    };

    double number(ExprNumber expr, Position position);
    void appendString(PathString &out, ExprNumber expr, Position position);
    bool comparison(const Expr &expr, Position position);
    bool compareNodes(const Expr &expr, Position position);
    bool compareNumbers(const Expr &expr);
    bool compareStrings(const Expr &expr);
    double count(const Routes &routes);
    double elsewhere(const Expr &expr);

    template <class Visit> bool eachNode(const Routes &routes, Visit visit);
    template <class Found> bool exists(const Routes &routes, bool isConstant, Found found);
    template <class Found> struct Search;
    template <class Found> bool reach(const Search<Found> &search, size_t step);
    template <class Found> bool take(const Search<Found> &search, size_t step);
    template <class Found> bool takeDown(const Search<Found> &search, size_t step);
    template <class Found> bool takeParent(const Search<Found> &search, size_t step);
    template <class Found> bool takeDeep(const Search<Found> &search, size_t step);
    vo::Vec<uint8_t> &statesOf(uint32_t memo);

    const PathProgram &program;
    PathNode &node;
    vo::Vec<Memo> memos;
    bool isNowhere = false; ///< There is no node, so that no route leads anywhere.
};

/// To the first child, or attribute if the step leads there.
inline bool toFirst(PathNode &node, const Step &step) {
    return step.axis == Step::attribute ? node.toFirstAttribute() : node.toFirstChild();
}

} // namespace xml
