// What a path means, as steps and expressions.
//
// A path is a union of routes. A route begins at the node that it is asked for or at the top of
// the tree, climbs to parents if it must, and leads on to children and attributes only: the parser
// turns every later `..` into a condition, as `a/b/..` selects what `a[b]` does. So nodes are found
// in document order in one walk, and a condition is a question about a node and what is below it.
#pragma once

#include "source/vo/vo_allocator.hpp"

#include <cstdint>
#include <string_view>

namespace xml {

/// Characters in UTF-8 that a program owns.
class PathText {
  public:
    PathText() = default;
    explicit PathText(std::string_view text) : chars(text.begin(), text.end()) {}
    std::string_view view() const { return {chars.data(), chars.size()}; }

  private:
    vo::Vec<char> chars;
};

/// Which nodes a step takes.
struct NodeTest {
    enum Kind : uint8_t {
        named, ///< Elements, or attributes, of a name.
        any,
        text,
        comment,
        instruction,
    };
    Kind kind = any;
    bool anyName = false;      ///< Of `named`: every name in the namespace.
    bool anyNamespace = false; ///< Of `named`.
    PathText name;             ///< Of an instruction its target; any if empty.
    PathText ns;               ///< Empty for none.
};

/// The number of an expression in its program.
using ExprNumber = uint32_t;
inline constexpr ExprNumber noExpr = UINT32_MAX;

inline constexpr uint32_t noMemo = UINT32_MAX;

struct Step {
    enum Axis : uint8_t { child, attribute, self, parent };
    Axis axis = self;
    bool deep = false;    ///< Taken from the node and all that is below it.
    bool isSized = false; ///< A condition asks how many nodes there are.
    NodeTest test;        ///< Of `self` and `parent`: any.
    vo::Vec<ExprNumber> conditions;
    uint32_t memo = noMemo; ///< Of a deep step in a condition: what is known about each node.
};

struct Route {
    bool isAbsolute = false;
    uint32_t climbs = 0; ///< The first steps, up to this one, go to parents or stay.
    vo::Vec<Step> steps;
};

using Routes = vo::Vec<Route>;

enum class Op : uint8_t {
    // Booleans
    either,
    both,
    negation,
    comparison,
    contains,
    startsWith,
    exists,
    // Numbers
    number,
    position,
    last,
    count,
    minus,
    // A string
    literal,
    // Nodes
    nodes,
    // Any but nodes and strings: the left operand, asked at another node.
    atParent,
    atTop,
};

enum class Type : uint8_t { boolean, number, string, nodes };

/// How two values are compared. Swapping the operands swaps `less` and `more`.
enum class Relation : uint8_t { equal, unequal, less, lessOrEqual, more, moreOrEqual };

/// What the value of an expression depends on, as bits.
enum Asks : uint8_t { asksNothing = 0, asksHere = 1, asksParent = 2, asksTop = 4, asksSize = 8 };

struct Expr {
    Op op;
    Type type;
    uint8_t asks = asksNothing;
    Relation relation = Relation::equal;
    ExprNumber left = noExpr, right = noExpr;
    double value = 0;
    PathText text{};
    Routes routes{};
    uint32_t memo = noMemo;
};

struct PathProgram {
    Routes routes;
    vo::Vec<Expr> exprs;
    uint32_t memos = 0;        ///< How many of them there are.
    uint32_t climb = 0;        ///< How far up it may lead from where it begins;
    bool isAbsolute = false;   ///< or to the top.
    bool needsNumbers = false; ///< Its conditions need numbered nodes.
};

} // namespace xml
