#include "source/xml/path/xml_path_walk.hpp"

#include <algorithm>
#include <bit>

namespace xml {

PathWalk::PathWalk(PathEvaluation &evaluation, const Routes &routes)
    : eval(evaluation), node(evaluation.at()) {
    for (size_t depth = 0; depth <= node.depth(); ++depth)
        way.push_back(node.spotAt(depth));
    top = node.depth();
    for (const Route &route : routes)
        addRoute(route);
    words = (states.size() + 63) / 64;
    for (auto *mask : {&deep, &down, &aside, &ends, &spot})
        mask->assign(words, 0);
    for (size_t i = 0; i < states.size(); ++i) {
        const Step *step = states[i].step;
        if (!step) {
            add(ends.data(), i);
            continue;
        }
        if (step->deep) add(deep.data(), i);
        if (step->deep || step->axis == Step::child) add(down.data(), i);
        if (step->axis == Step::attribute) add(aside.data(), i);
        if (step->axis == Step::self) add(spot.data(), i);
    }
}

void PathWalk::addRoute(const Route &route) {
    const bool leads = climbHead(route);
    if (leads) {
        entries.push_back({node.depth(), states.size()});
        top = std::min(top, node.depth());
        for (size_t i = route.climbs; i < route.steps.size(); ++i) {
            states.push_back({&route.steps[i], counterCount});
            counterCount += route.steps[i].conditions.size();
        }
        states.push_back({nullptr, 0});
    }
    goDown(way.size() - 1);
}

/// To where the route leads down from; false when that does not exist.
bool PathWalk::climbHead(const Route &route) {
    if (route.isAbsolute) goUp(0);
    for (size_t i = 0; i < route.climbs; ++i) {
        const Step &step = route.steps[i];
        if (step.axis == Step::parent ? !node.toParent() : !eval.meets(step, nullptr)) return false;
    }
    return true;
}

void PathWalk::goUp(size_t depth) {
    while (node.depth() > depth)
        (void)node.toParent();
}

/// Down the way to where the walk began.
void PathWalk::goDown(size_t depth) {
    while (node.depth() < depth)
        node.toSpot(way[node.depth() + 1]);
}

void PathWalk::leave() {
    goUp(top);
    goDown(way.size() - 1);
}

// ---------------------------------------------------------------- walking

bool PathWalk::next() {
    if (states.empty() || phase == Phase::ended) return false;
    if (phase == Phase::before) {
        phase = Phase::walking;
        goUp(top);
        onWay = top;
        bits.assign(words, 0);
        counters.assign(counterCount, 0);
        enterRoutes();
        stay();
        if (isFound()) return true;
    }
    while (step())
        if (isFound()) return true;
    phase = Phase::ended;
    return false;
}

/// To the next node in document order to which a route may lead.
bool PathWalk::step() {
    const bool fromElement = !node.spot().isAttribute || node.depth() == top;
    if (fromElement && (enter(true) || enter(false))) return true;
    while (node.depth() > top) {
        if (node.toNext()) return arrive(), true;
        const bool wasAttribute = node.spot().isAttribute;
        (void)node.toParent();
        forgetTaken();
        if (wasAttribute && enter(false)) return true;
    }
    return false;
}

/// To the first attribute or child of the node if routes lead there.
bool PathWalk::enter(bool attributes) {
    if (!wants(attributes ? aside : down) && !leadsToStart()) return false;
    const size_t depth = node.depth();
    for (size_t i = 0; i < states.size(); ++i) {
        const Step *step = states[i].step;
        if (!step || !step->isSized || !has(bitsAt(depth), i)) continue;
        if ((step->axis == Step::attribute) == attributes)
            sized.push_back({depth, i, eval.taken(*step), 0});
    }
    if (!(attributes ? node.toFirstAttribute() : node.toFirstChild())) return forgetTaken(), false;
    arrive();
    return true;
}

void PathWalk::forgetTaken() {
    while (!sized.empty() && sized.back().depth == node.depth())
        sized.pop_back();
}

bool PathWalk::wants(const vo::Vec<uint64_t> &mask) const {
    const uint64_t *set = bitsAt(node.depth());
    for (size_t i = 0; i < words; ++i)
        if (set[i] & mask[i]) return true;
    return false;
}

/// Whether a route is still to be entered below the node.
bool PathWalk::leadsToStart() const {
    if (onWay != node.depth()) return false;
    return std::ranges::any_of(entries, [&](Entry entry) { return entry.depth > onWay; });
}

/// Finds out which states the node is in.
void PathWalk::arrive() {
    const size_t depth = node.depth();
    const PathNode::Spot &here = node.spot();
    onWay = std::min(onWay, depth - 1);
    if (onWay == depth - 1 && depth < way.size() && here.index == way[depth].index &&
        here.isAttribute == way[depth].isAttribute)
        onWay = depth;

    const size_t levels = depth - top + 1;
    if (bits.size() < levels * words) {
        bits.resize(levels * words);
        counters.resize(levels * counterCount);
    }
    std::fill_n(countersAt(depth), counterCount, 0);
    const uint64_t *before = bitsAt(depth - 1);
    uint64_t *now = bitsAt(depth);
    for (size_t i = 0; i < words; ++i)
        now[i] = here.isAttribute ? 0 : before[i] & deep[i];
    const auto &mask = here.isAttribute ? aside : down;
    for (size_t i = 0; i < words; ++i)
        for (uint64_t left = before[i] & mask[i]; left; left &= left - 1)
            pass(i * 64 + size_t(std::countr_zero(left)));
    enterRoutes();
    stay();
}

/// Takes the step of a state in which the parent is, if it leads to the node.
void PathWalk::pass(size_t state) {
    const Step &step = *states[state].step;
    const Step::Axis axis = node.spot().isAttribute ? Step::attribute : Step::child;
    if (step.axis != axis || !node.matches(step.test)) return;
    const size_t depth = node.depth();
    const bool isMet = step.isSized
                           ? isTaken(state)
                           : eval.meets(step, countersAt(depth - 1) + states[state].counter);
    if (isMet) add(bitsAt(depth), state + 1);
}

bool PathWalk::isTaken(size_t state) {
    const size_t depth = node.depth() - 1;
    const auto found = std::ranges::find_if(
        sized, [&](const Taken &taken) { return taken.depth == depth && taken.state == state; });
    auto &[itsDepth, itsState, indexes, next] = *found;
    while (next < indexes.size() && indexes[next] < node.spot().index)
        ++next;
    return next < indexes.size() && indexes[next] == node.spot().index;
}

void PathWalk::enterRoutes() {
    if (onWay != node.depth()) return;
    for (const Entry &entry : entries)
        if (entry.depth == onWay) add(bitsAt(onWay), entry.state);
}

/// Takes the steps that stay at the node.
void PathWalk::stay() {
    uint64_t *now = bitsAt(node.depth());
    for (size_t i = 0; i < words; ++i)
        for (uint64_t left = now[i] & spot[i]; left; left &= left - 1) {
            const size_t state = i * 64 + size_t(std::countr_zero(left));
            if (!eval.meets(*states[state].step, nullptr)) continue;
            add(now, state + 1);
            if ((state + 1) / 64 == i) left |= now[i] & spot[i] & (uint64_t{1} << (state + 1) % 64);
        }
}

bool PathWalk::isFound() const { return wants(ends); }

} // namespace xml
