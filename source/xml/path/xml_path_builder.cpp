#include "source/xml/path/xml_path_builder.hpp"

#include <algorithm>
#include <iterator>

namespace xml {
namespace {

uint8_t askedBy(const Routes &routes) {
    uint8_t asked = asksNothing;
    for (const Route &route : routes) {
        const bool climbs = !route.steps.empty() && route.steps.front().axis == Step::parent;
        asked |= route.isAbsolute ? asksTop : climbs ? asksParent : asksHere;
    }
    return asked;
}

Relation swapped(Relation relation) {
    switch (relation) {
    case Relation::less:
        return Relation::more;
    case Relation::lessOrEqual:
        return Relation::moreOrEqual;
    case Relation::more:
        return Relation::less;
    case Relation::moreOrEqual:
        return Relation::lessOrEqual;
    default:
        return relation;
    }
}

/// Leaves out the way to the parent, or to the top.
void leaveOutFirst(Routes &routes) {
    for (Route &route : routes) {
        if (!route.isAbsolute) {
            route.steps.erase(route.steps.begin());
            --route.climbs;
        }
        route.isAbsolute = false;
    }
}

Step stepTo(Step::Axis axis, bool deep = false) {
    Step step;
    step.axis = axis;
    step.deep = deep;
    return step;
}

} // namespace

ExprNumber PathBuilder::add(Expr expr) {
    program.exprs.push_back(std::move(expr));
    return ExprNumber(program.exprs.size() - 1);
}

ExprNumber PathBuilder::constant(double value) {
    Expr expr{Op::number, Type::number};
    expr.value = value;
    return add(std::move(expr));
}

ExprNumber PathBuilder::constant(std::string_view text) {
    Expr expr{Op::literal, Type::string};
    expr.text = PathText(text);
    return add(std::move(expr));
}

ExprNumber PathBuilder::nodes(Routes routes) {
    Expr expr{Op::nodes, Type::nodes, askedBy(routes)};
    expr.routes = std::move(routes);
    return add(std::move(expr));
}

ExprNumber PathBuilder::operation(Op op, Type type, ExprNumber left) {
    Expr expr{op, type, program.exprs[left].asks};
    expr.left = left;
    return add(std::move(expr));
}

ExprNumber PathBuilder::operation(Op op, Type type, ExprNumber left, ExprNumber right) {
    const uint8_t asks = program.exprs[left].asks | program.exprs[right].asks;
    if (asks != asksParent && asks != asksTop) {
        left = lift(left);
        right = lift(right);
    }
    Expr expr{op, type, asks};
    expr.left = left;
    expr.right = right;
    return add(std::move(expr));
}

/// Nodes come to stand on the left, if there are any.
ExprNumber PathBuilder::compare(Relation relation, ExprNumber left, ExprNumber right) {
    if (program.exprs[right].type == Type::nodes) {
        std::swap(left, right);
        relation = swapped(relation);
    }
    const bool isEquality = relation == Relation::equal || relation == Relation::unequal;
    const auto asBoolean = [&](ExprNumber expr) {
        expr = boolean(expr);
        if (!isEquality || program.exprs[expr].type == Type::boolean) return expr;
        return operation(Op::negation, Type::boolean, operation(Op::negation, Type::boolean, expr));
    };
    if (program.exprs[right].type == Type::boolean) left = asBoolean(left);
    if (program.exprs[left].type == Type::boolean) right = asBoolean(right);
    const ExprNumber made = operation(Op::comparison, Type::boolean, left, right);
    program.exprs[made].relation = relation;
    return made;
}

ExprNumber PathBuilder::boolean(ExprNumber expr) {
    const bool isNodes = program.exprs[expr].type == Type::nodes;
    return isNodes ? operation(Op::exists, Type::boolean, expr) : expr;
}

ExprNumber PathBuilder::condition(ExprNumber expr) {
    if (program.exprs[expr].type == Type::number) expr = compare(Relation::equal, position(), expr);
    return lift(boolean(expr));
}

// ---------------------------------------------------------------- routes

bool PathBuilder::append(Routes &routes, const Step &step) {
    const bool isUseless = step.axis == Step::self && !step.deep && step.conditions.empty();
    if (isUseless) return true;
    if (step.axis == Step::parent) {
        if (step.deep && !append(routes, stepTo(Step::self, true))) return false;
        Routes climbed;
        for (Route &route : routes)
            if (!climb(std::move(route), climbed)) return false;
        routes = std::move(climbed);
        return true;
    }
    for (Route &route : routes)
        route.steps.push_back(step);
    return true;
}

/// Adds routes to the parents of the nodes to which one leads. The last step down, with those on
/// its spot behind it, becomes a condition on where it was taken from. A deep step on the spot
/// leads to the node itself, whose parent must be climbed to, and to nodes below, whose parents the
/// same step reaches.
bool PathBuilder::climb(Route route, Routes &climbed) {
    if (climbed.size() == mostRoutes || isTooLarge()) return false;
    auto &steps = route.steps;
    size_t last = steps.size();
    while (last > 0 && steps[last - 1].axis == Step::self && !steps[last - 1].deep)
        --last;
    if (last == 0 || steps[last - 1].axis == Step::parent) {
        if (last == 0 && route.isAbsolute) return true; // Nothing is above the top.
        steps.push_back(stepTo(Step::parent));
        route.climbs = uint32_t(steps.size());
        climbed.push_back(std::move(route));
        return true;
    }
    const auto at = steps.begin() + ptrdiff_t(last - 1);
    const bool deep = at->deep;
    if (at->axis == Step::self) {
        Route shallow = route;
        shallow.steps[last - 1].deep = false;
        if (!climb(std::move(shallow), climbed)) return false;
    }
    Route down;
    if (at->axis == Step::self) down.steps.push_back(stepTo(Step::child));
    at->deep = false;
    down.steps.insert(down.steps.end(), std::make_move_iterator(at),
                      std::make_move_iterator(steps.end()));
    steps.erase(at, steps.end());
    Step holder = stepTo(Step::self, deep);
    Routes downs;
    downs.push_back(std::move(down));
    holder.conditions.push_back(condition(nodes(std::move(downs))));
    steps.push_back(std::move(holder));
    climbed.push_back(std::move(route));
    return true;
}

// ---------------------------------------------------------------- asking elsewhere

/// Calls `visit` for an expression and its operands, but not for conditions in routes.
template <class Visit> void PathBuilder::visitOperands(ExprNumber expr, Visit visit) {
    vo::Vec<ExprNumber> waiting = {expr};
    while (!waiting.empty()) {
        Expr &next = program.exprs[waiting.back()];
        waiting.pop_back();
        visit(next);
        if (next.left != noExpr) waiting.push_back(next.left);
        if (next.right != noExpr) waiting.push_back(next.right);
    }
}

/// An expression that asks at the parent alone, or at the top alone, is asked there.
ExprNumber PathBuilder::lift(ExprNumber expr) {
    const uint8_t asks = program.exprs[expr].asks;
    const Type type = program.exprs[expr].type;
    if (type != Type::boolean && type != Type::number) return expr;
    if (asks != asksParent && asks != asksTop) return expr;
    uint32_t levels = 0;
    uint8_t left = asksNothing;
    do {
        left = asksNothing;
        visitOperands(expr, [&](Expr &operand) {
            leaveOutFirst(operand.routes);
            left |= askedBy(operand.routes);
        });
        ++levels;
    } while (left == asksParent);
    for (; levels > 0; --levels) {
        expr = operation(asks == asksTop ? Op::atTop : Op::atParent, type, expr);
        program.exprs[expr].asks = asks;
        program.exprs[expr].memo = program.memos++;
    }
    return expr;
}

// ---------------------------------------------------------------- the program as a whole

/// The highest level that routes lead to from a node on `level`, where parents are on lower ones.
int64_t PathBuilder::highest(const Routes &routes, int64_t level) const {
    int64_t found = level;
    for (const Route &route : routes) {
        int64_t at = route.isAbsolute ? INT32_MAX : level;
        for (const Step &step : route.steps) {
            at += step.axis == Step::self ? 0 : step.axis == Step::parent ? -1 : 1;
            found = std::min(found, at);
            for (const ExprNumber condition : step.conditions)
                found = std::min(found, highest(condition, at));
        }
    }
    return found;
}

int64_t PathBuilder::highest(ExprNumber expr, int64_t level) const {
    int64_t found = level;
    for (; expr != noExpr; expr = program.exprs[expr].right) {
        const Expr &asked = program.exprs[expr];
        const int64_t there = asked.op == Op::atParent ? level - 1
                              : asked.op == Op::atTop  ? INT32_MAX
                                                       : level;
        found = std::min({found, there, highest(asked.routes, there)});
        if (asked.left != noExpr) found = std::min(found, highest(asked.left, there));
    }
    return found;
}

void PathBuilder::finish() {
    program.climb = uint32_t(-highest(program.routes, 0));
    for (const Route &route : program.routes)
        program.isAbsolute |= route.isAbsolute;
    for (Expr &expr : program.exprs) {
        program.isAbsolute |= expr.op == Op::atTop;
        program.needsNumbers |= expr.memo != noMemo;
        for (Route &route : expr.routes) {
            program.isAbsolute |= route.isAbsolute;
            program.needsNumbers |= route.isAbsolute || route.climbs > 0;
            for (Step &step : route.steps) {
                if (!step.deep) continue;
                step.memo = program.memos++;
                program.needsNumbers = true;
            }
        }
    }
}

} // namespace xml
