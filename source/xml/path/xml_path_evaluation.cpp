#include "source/xml/path/xml_path_evaluation.hpp"

#include "source/vo/vo_inline_vector.hpp"
#include "source/xml/path/xml_path_walk.hpp"

#include <algorithm>
#include <cmath>

namespace xml {

// ---------------------------------------------------------------- values

bool PathEvaluation::truth(ExprNumber number_, Position position) {
    for (;;) {
        const Expr &expr = program.exprs[number_];
        switch (expr.op) {
        case Op::either:
            if (truth(expr.left, position)) return true;
            number_ = expr.right;
            continue;
        case Op::both:
            if (!truth(expr.left, position)) return false;
            number_ = expr.right;
            continue;
        case Op::negation:
            return !truth(expr.left, position);
        case Op::comparison:
            return comparison(expr, position);
        case Op::contains:
        case Op::startsWith: {
            PathString text, part;
            appendString(text, expr.left, position);
            appendString(part, expr.right, position);
            return expr.op == Op::contains ? text.view().find(part.view()) <= text.view().size()
                                           : text.view().starts_with(part.view());
        }
        case Op::exists:
            return exists(program.exprs[expr.left].routes, true, [] { return true; });
        case Op::literal:
            return !expr.text.view().empty();
        case Op::atParent:
        case Op::atTop:
            return elsewhere(expr) != 0;
        default: {
            const double value = number(number_, position);
            return value != 0 && !std::isnan(value);
        }
        }
    }
}

double PathEvaluation::number(ExprNumber number_, Position position) {
    const Expr &expr = program.exprs[number_];
    switch (expr.op) {
    case Op::number:
        return expr.value;
    case Op::position:
        return double(position.position);
    case Op::last:
        return double(position.size);
    case Op::count:
        return count(program.exprs[expr.left].routes);
    case Op::minus:
        return -number(expr.left, position);
    case Op::literal:
        return numberOf(expr.text.view());
    case Op::nodes: {
        PathString text;
        appendString(text, number_, position);
        return numberOf(text.view());
    }
    case Op::atParent:
    case Op::atTop:
        return elsewhere(expr);
    default:
        return truth(number_, position) ? 1 : 0;
    }
}

void PathEvaluation::appendString(PathString &out, ExprNumber number_, Position position) {
    const Expr &expr = program.exprs[number_];
    if (expr.op == Op::literal) return out.append(expr.text.view());
    if (expr.type == Type::boolean) return out.append(truth(number_, position) ? "true" : "false");
    if (expr.type == Type::number) return appendNumber(out, number(number_, position));
    (void)eachNode(expr.routes, [&] { return node.appendString(out), true; });
}

bool PathEvaluation::comparison(const Expr &expr, Position position) {
    const Type left = program.exprs[expr.left].type, right = program.exprs[expr.right].type;
    const bool isEquality = expr.relation == Relation::equal || expr.relation == Relation::unequal;
    if (left == Type::nodes && right == Type::nodes)
        return isEquality ? compareStrings(expr) : compareNumbers(expr);
    if (left == Type::nodes) return compareNodes(expr, position);
    if (!isEquality || left == Type::number || right == Type::number || left == Type::boolean)
        return areRelated(expr.relation, number(expr.left, position), number(expr.right, position));
    return areRelated(expr.relation, program.exprs[expr.left].text.view(),
                      program.exprs[expr.right].text.view());
}

/// Whether a node compares so with a number or a string.
bool PathEvaluation::compareNodes(const Expr &expr, Position position) {
    const Expr &other = program.exprs[expr.right];
    const Routes &routes = program.exprs[expr.left].routes;
    const bool isEquality = expr.relation == Relation::equal || expr.relation == Relation::unequal;
    if (other.type == Type::string && isEquality) {
        const bool wanted = expr.relation == Relation::equal;
        return exists(routes, true, [&] { return node.equals(other.text.view()) == wanted; });
    }
    const double value = number(expr.right, position);
    const bool isConstant = other.op == Op::number || other.op == Op::literal;
    PathString text;
    return exists(routes, isConstant, [&] {
        text.clear();
        node.appendString(text);
        return areRelated(expr.relation, numberOf(text.view()), value);
    });
}

/// Whether the numbers of any two nodes, one of each set, compare so: the least or the greatest of
/// one set tells.
bool PathEvaluation::compareNumbers(const Expr &expr) {
    const bool wantsLess =
        expr.relation == Relation::less || expr.relation == Relation::lessOrEqual;
    const auto value = [&] {
        PathString text;
        node.appendString(text);
        return numberOf(text.view());
    };
    double limit = NAN; // With which nothing compares.
    (void)eachNode(program.exprs[expr.right].routes, [&] {
        const double one = value();
        if (std::isnan(limit) || (wantsLess ? one > limit : one < limit)) limit = one;
        return false;
    });
    return eachNode(program.exprs[expr.left].routes,
                    [&] { return areRelated(expr.relation, value(), limit); });
}

/// The same for equality of strings. Those of one set are put in order, so that each of the other
/// is compared with few.
bool PathEvaluation::compareStrings(const Expr &expr) {
    vo::Vec<PathString> strings;
    (void)eachNode(program.exprs[expr.right].routes, [&] {
        strings.emplace_back();
        node.appendString(strings.back());
        return false;
    });
    if (strings.empty()) return false;
    constexpr auto view = [](const PathString &string) { return string.view(); };
    std::ranges::sort(strings, {}, view);
    return eachNode(program.exprs[expr.left].routes, [&] {
        PathString text;
        node.appendString(text);
        if (expr.relation == Relation::equal)
            return std::ranges::binary_search(strings, text.view(), {}, view);
        return strings.front().view() != text.view() || strings.back().view() != text.view();
    });
}

double PathEvaluation::count(const Routes &routes) {
    uint64_t found = 0;
    (void)eachNode(routes, [&] { return ++found, false; });
    return double(found);
}

/// The value of an expression at the parent or at the top, found out once for each.
double PathEvaluation::elsewhere(const Expr &expr) {
    const bool isAbove = expr.op == Op::atParent;
    if (isNowhere || (isAbove && node.depth() == 0)) {
        const bool was = std::exchange(isNowhere, true);
        const double value = number(expr.left, {});
        isNowhere = was;
        return value;
    }
    auto &known = statesOf(expr.memo);
    auto &values = memos[expr.memo].values;
    values.resize(known.size());
    const uint64_t there = isAbove ? node.parent().number : 0;
    if (known[there]) return values[there];
    vo::Vec<PathNode::Spot> way;
    while (node.depth() > 0 && (way.empty() || !isAbove)) {
        way.push_back(node.spot());
        (void)node.toParent();
    }
    const double value = number(expr.left, {});
    for (; !way.empty(); way.pop_back())
        node.toSpot(way.back());
    known[there] = Memo::yes;
    return values[there] = value;
}

vo::Vec<uint8_t> &PathEvaluation::statesOf(uint32_t memo) {
    auto &states = memos[memo].states;
    if (states.empty()) states.resize(node.numbers());
    return states;
}

// ---------------------------------------------------------------- nodes

/// Calls `visit` for each node to which routes lead, in document order, until it gives true.
template <class Visit> bool PathEvaluation::eachNode(const Routes &routes, Visit visit) {
    if (isNowhere) return false;
    const auto isDeep = [](const Step &step) { return step.deep; };
    if (routes.size() == 1 && std::ranges::none_of(routes[0].steps, isDeep))
        return exists(routes, false, visit);
    PathWalk walk(*this, routes);
    bool isDone = false;
    while (!isDone && walk.next())
        isDone = visit();
    walk.leave();
    return isDone;
}

template <class Found> struct PathEvaluation::Search {
    const Route &route;
    const bool isConstant; ///< What `found` gives depends on the node alone.
    Found &found;
};

/// Whether `found` gives true for a node to which a route leads.
template <class Found>
bool PathEvaluation::exists(const Routes &routes, bool isConstant, Found found) {
    if (isNowhere) return false;
    return std::ranges::any_of(routes, [&](const Route &route) {
        const Search<Found> search{route, isConstant, found};
        if (!route.isAbsolute) return reach(search, 0);
        vo::Vec<PathNode::Spot> way;
        for (; node.depth() > 0; (void)node.toParent())
            way.push_back(node.spot());
        const bool result = reach(search, 0);
        for (; !way.empty(); way.pop_back())
            node.toSpot(way.back());
        return result;
    });
}

template <class Found> bool PathEvaluation::reach(const Search<Found> &search, size_t step) {
    if (step == search.route.steps.size()) return search.found();
    return search.route.steps[step].deep ? takeDeep(search, step) : take(search, step);
}

/// Takes a step from this node, also if it is deep.
template <class Found> bool PathEvaluation::take(const Search<Found> &search, size_t step) {
    const Step &taken = search.route.steps[step];
    if (taken.axis == Step::self) return meets(taken, nullptr) && reach(search, step + 1);
    return taken.axis == Step::parent ? takeParent(search, step) : takeDown(search, step);
}

template <class Found> bool PathEvaluation::takeParent(const Search<Found> &search, size_t step) {
    const PathNode::Spot from = node.spot();
    if (!node.toParent()) return false;
    const bool result = reach(search, step + 1);
    node.toSpot(from);
    return result;
}

template <class Found> bool PathEvaluation::takeDown(const Search<Found> &search, size_t step) {
    const Step &taken = search.route.steps[step];
    vo::Vec<int64_t> indexes;
    if (taken.isSized && (indexes = this->taken(taken)).empty()) return false;
    if (!toFirst(node, taken)) return false;
    vo::InlineVector<uint64_t, 4> counters;
    for (size_t i = 0; i < taken.conditions.size(); ++i)
        counters.push(0);
    bool isDone = false;
    size_t next = 0;
    do {
        if (taken.isSized) {
            if (next == indexes.size()) break;
            if (node.spot().index != indexes[next]) continue;
            ++next;
        } else if (!node.matches(taken.test) || !meets(taken, counters.data())) {
            continue;
        }
        isDone = reach(search, step + 1);
    } while (!isDone && node.toNext());
    (void)node.toParent();
    return isDone;
}

/// Takes a step from this node and all below it. Of each that is asked about for the second time
/// the answer is known.
template <class Found> bool PathEvaluation::takeDeep(const Search<Found> &search, size_t step) {
    if (node.type() == XML_CURSOR_TYPE_ATTRIBUTE) return take(search, step);
    const bool remembers = search.isConstant;
    static constexpr size_t none = 0;
    vo::Vec<uint8_t> forgotten;
    auto &known = remembers ? statesOf(search.route.steps[step].memo) : forgotten;
    const auto settle = [&](Memo::State state) {
        if (remembers) known[node.spot().number] = state;
    };
    size_t level = none;
    bool isFound = false;
    do {
        const uint8_t state = remembers ? known[node.spot().number] : uint8_t{Memo::unknown};
        isFound = state == Memo::yes || (state == Memo::unknown && take(search, step));
        if (isFound) break;
        if (state == Memo::unknown && node.toFirstChild()) {
            ++level;
            continue;
        }
        settle(Memo::no);
        for (; level > none && !node.toNext(); --level) {
            (void)node.toParent();
            settle(Memo::no);
        }
    } while (level > none);
    if (!isFound) return false;
    for (settle(Memo::yes); level > none; --level) {
        (void)node.toParent();
        settle(Memo::yes);
    }
    return true;
}

// ---------------------------------------------------------------- conditions

bool PathEvaluation::meets(const Step &step, uint64_t *counters) {
    for (size_t i = 0; i < step.conditions.size(); ++i) {
        const uint64_t position = counters ? ++counters[i] : 1;
        if (!truth(step.conditions[i], {position, 0})) return false;
    }
    return true;
}

vo::Vec<int64_t> PathEvaluation::taken(const Step &step) {
    vo::Vec<int64_t> left;
    if (!toFirst(node, step)) return left;
    do
        if (node.matches(step.test)) left.push_back(node.spot().index);
    while (node.toNext());
    (void)node.toParent();
    for (const ExprNumber condition : step.conditions) {
        Position position{0, left.size()};
        if (left.empty()) return left;
        vo::Vec<int64_t> met;
        (void)toFirst(node, step);
        do {
            if (left[position.position] != node.spot().index) continue;
            ++position.position;
            if (truth(condition, position)) met.push_back(node.spot().index);
        } while (position.position < left.size() && node.toNext());
        (void)node.toParent();
        left = std::move(met);
    }
    return left;
}

} // namespace xml
