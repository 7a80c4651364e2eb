#include "source/xml/path/xml_path_node.hpp"

#include "source/xml/base/xml_char.hpp"

namespace xml {

PathNode::PathNode(vo::Ref<XML_CURSOR> top)
    : at(std::move(top)), isDocument(xmlCursorType(at) == XML_CURSOR_TYPE_DOCUMENT) {}

// ---------------------------------------------------------------- moving

void PathNode::enter(bool attributes) {
    above.push_back(here);
    // Attributes have no numbers of their own.
    const uint64_t first = attributes ? here.number : here.number + 1;
    here = {first, 0, attributes};
}

/// To the next item or attribute as the cursor sees them.
bool PathNode::step() {
    if (!xmlCursorNext(at)) return false;
    ++here.index;
    if (!behind.empty() && !here.isAttribute) here.number = behind[here.number];
    return true;
}

/// To the first node from here on.
bool PathNode::settle() {
    const bool isBesideRoot = isDocument && depth() == 1;
    while (isText(type()) && (isBesideRoot || xmlCursorValue(at).length == 0))
        if (!step()) return false;
    return true;
}

bool PathNode::toFirstChild() {
    if (!xmlCursorFirstChild(at)) return false;
    enter(false);
    return settle() || (toParent(), false);
}

bool PathNode::toFirstAttribute() {
    if (!xmlCursorFirstAttribute(at)) return false;
    enter(true);
    while (isDeclaration())
        if (!step()) return toParent(), false;
    return true;
}

bool PathNode::toNext() {
    if (here.isAttribute) {
        while (step())
            if (!isDeclaration()) return true;
        return false;
    }
    const bool wasText = isText(type());
    do
        if (!step()) return false;
    while (wasText && isText(type()));
    return settle();
}

bool PathNode::toParent() {
    if (above.empty()) return false;
    (void)xmlCursorParent(at);
    here = above.back();
    above.pop_back();
    return true;
}

void PathNode::toSpot(const Spot &wanted) {
    (void)(wanted.isAttribute ? xmlCursorFirstAttribute : xmlCursorFirstChild)(at);
    enter(wanted.isAttribute);
    while (here.index < wanted.index)
        (void)step();
}

// ---------------------------------------------------------------- reading

bool PathNode::isDeclaration() const {
    const std::string_view name = viewOf(xmlCursorName(at));
    if (!name.starts_with("xmlns")) return false;
    return (name.size() == 5 || name[5] == ':') && !xmlCursorNamespace(at).bytes;
}

bool PathNode::matches(const NodeTest &test) const {
    switch (test.kind) {
    case NodeTest::named:
        return matchesName(test);
    case NodeTest::text:
        return isText(type());
    case NodeTest::comment:
        return type() == XML_ITEM_TYPE_COMMENT;
    case NodeTest::instruction:
        return type() == XML_ITEM_TYPE_PROCESSING_INSTRUCTION &&
               (test.name.view().empty() || instructionIn(value()).target == test.name.view());
    default:
        return true;
    }
}

bool PathNode::matchesName(const NodeTest &test) const {
    const XML_ITEM_TYPE kind = type();
    if (kind != XML_ITEM_TYPE_ELEMENT && kind != XML_CURSOR_TYPE_ATTRIBUTE) return false;
    if (!test.anyName && viewOf(xmlCursorName(at)) != test.name.view()) return false;
    return test.anyNamespace || viewOf(xmlCursorNamespace(at)) == test.ns.view();
}

/// As it is stored where it refers to an entity that nobody knows.
std::string_view PathNode::value() const {
    const XML_UTF8 plain = xmlCursorValueTryUnescape(at);
    return viewOf(plain.bytes ? plain : xmlCursorValue(at));
}

Instruction instructionIn(std::string_view value) {
    size_t end = 0;
    while (end < value.size() && !isSpace(uint8_t(value[end])))
        ++end;
    size_t begin = end;
    while (begin < value.size() && isSpace(uint8_t(value[begin])))
        ++begin;
    return {value.substr(0, end), value.substr(begin)};
}

// ---------------------------------------------------------------- numbers

void PathNode::giveNumbers() {
    vo::Vec<uint64_t> open;
    const auto close = [&] {
        behind[open.back()] = behind.size();
        open.pop_back();
    };
    do {
        open.push_back(behind.size());
        behind.push_back(0);
        if (xmlCursorFirstChild(at)) continue;
        close();
        while (!open.empty() && !xmlCursorNext(at)) {
            (void)xmlCursorParent(at);
            close();
        }
    } while (!open.empty());
}

} // namespace xml
