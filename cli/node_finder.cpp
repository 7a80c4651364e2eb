#include "node_finder.hpp"

#include <algorithm>

namespace tool {

NodeFinder::NodeFinder(const Decoded &decoded, Comparison comparison, const NodeTable &table,
                       const NameTable &nameTable)
    : at(decoded, comparison), nodes(table), names(nameTable) {
    way.push_back({0, {}, {}});
}

NodeFinder::Found NodeFinder::find(size_t node) {
    auto level = std::ranges::lower_bound(way, node, {}, &Level::node);
    if (level == way.end() || level->node != node) {
        goTo(node);
        level = way.end() - 1;
    }
    const auto place = level == way.end() - 1 ? placeOf(at.cursor()) : level->place;
    return {pathTo(static_cast<size_t>(level - way.begin())), place};
}

void NodeFinder::goTo(size_t node) {
    while (way.back().node != node) {
        if (isIn(node, way.back())) {
            goDown();
            continue;
        }
        while (!isIn(node, way[way.size() - 2])) {
            at.toParent();
            way.pop_back();
        }
        goOn();
    }
}

void NodeFinder::goDown() {
    const size_t parent = way.back().node;
    way.back().place = placeOf(at.cursor());
    at.toFirstChild();
    way.push_back({parent + 1, {}, {}});
    Counts &counts = way.back().counts;
    for (size_t child = parent + 1; child < nodes[parent].end; child = nodes[child].end)
        ++counts[kindOf(child)].all;
    ++counts[kindOf(parent + 1)].seen;
}

void NodeFinder::goOn() {
    at.toNext();
    Level &level = way.back();
    level.node = nodes[level.node].end;
    ++level.counts[kindOf(level.node)].seen;
}

uint64_t NodeFinder::kindOf(size_t node) const {
    const NodeTable::Node &found = nodes[node];
    const uint64_t name = found.type == XML_ITEM_TYPE_ELEMENT ? found.name : 0;
    return name * (XML_CURSOR_TYPE_ATTRIBUTE + 1) + static_cast<uint64_t>(found.type);
}

std::string NodeFinder::pathTo(size_t level) const {
    constexpr size_t mostAtEnds = 50;
    if (level == 0) return "/";
    std::string path;
    for (size_t i = 1; i <= level; ++i) {
        if (i > mostAtEnds && level - i > mostAtEnds) {
            path += "/...";
            i = level - mostAtEnds;
        }
        path += '/' + stepTo(way[i]);
    }
    return path;
}

std::string NodeFinder::stepTo(const Level &level) const {
    static constexpr ByItemType<const char *> tests = {"", "processing-instruction()", "comment()",
                                                       "text()", "text()"};
    const NodeTable::Node &node = nodes[level.node];
    const Count count = level.counts.at(kindOf(level.node));
    uint32_t position = count.all > 1 ? count.seen : 0;
    if (node.type == XML_ITEM_TYPE_TEXT || node.type == XML_ITEM_TYPE_CDATA)
        position = nodes.positionOfText(level.node);
    const std::string test =
        node.type == XML_ITEM_TYPE_ELEMENT ? names[node.name] : of(tests, node.type);
    return position ? test + "[" + std::to_string(position) + "]" : test;
}

} // namespace tool
