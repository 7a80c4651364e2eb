#include "source/xml/base/xml_object.hpp"
#include "source/xml/path/xml_path.hpp"
#include "source/xml/path/xml_path_walk.hpp"

using vo::Ref;

namespace xml {
namespace {

/// The spot of the cursor's node; then the cursor is on the parent. False when it has none.
bool climb(XML_CURSOR *cursor, vo::Vec<PathNode::Spot> &way) {
    const bool isAttribute = xmlCursorType(cursor) == XML_CURSOR_TYPE_ATTRIBUTE;
    int64_t behind = 0, index = 0;
    while (xmlCursorNext(cursor))
        ++behind;
    if (!xmlCursorParent(cursor)) return false;
    (void)(isAttribute ? xmlCursorFirstAttribute : xmlCursorFirstChild)(cursor);
    while (xmlCursorNext(cursor))
        ++index;
    (void)xmlCursorParent(cursor);
    way.push_back({0, index - behind, isAttribute});
    return true;
}

/// The node from which a program leads on, with all that it may ask about below its top.
PathNode beginOn(XML_CURSOR *cursor, const PathProgram &program) {
    vo::Vec<PathNode::Spot> way;
    const bool isHere = program.climb == 0 && !program.isAbsolute;
    Ref top(isHere ? xmlCursorCreateHere(cursor) : xmlCursorCreateFrom(cursor));
    while ((program.isAbsolute || way.size() < program.climb) && climb(top, way)) {
    }
    PathNode node(std::move(top));
    if (program.needsNumbers) node.giveNumbers();
    for (; !way.empty(); way.pop_back())
        node.toSpot(way.back());
    return node;
}

/// A path on its way through a tree.
struct Selection {
    Selection(XML_PATH *selected, XML_CURSOR *cursor)
        : path(vo::retained(selected)), node(beginOn(cursor, programOf(path))),
          evaluation(programOf(path), node), walk(evaluation, programOf(path).routes) {}

    const Ref<XML_PATH> path;
    PathNode node;
    PathEvaluation evaluation;
    PathWalk walk;
    PathString text;
    bool isOnNode = false;
};

} // namespace
} // namespace xml

struct XML_SELECTION {
    voObj base;
    xml::Selection *state;
};

extern "C" {
void xml___SelectionFreeFunc(voObj *obj);
extern voSort xml___sort_XML_SELECTION;
}

void xml___SelectionFreeFunc(voObj *obj) { vo::discard(xmlSelectionFrom(obj)->state); }

constinit voSort xml___sort_XML_SELECTION = {
    {nullptr, 1}, &xml___module, "XML_SELECTION", xml___SelectionFreeFunc};
VO_OPERATIONS(xmlSelection, XML_SELECTION, xml___sort_XML_SELECTION);

XML_SELECTION *xmlPathSelect(XML_PATH *path, XML_CURSOR *cursor) {
    VO_ASSERT(path);
    VO_ASSERT(cursor);
    auto *selection = reinterpret_cast<XML_SELECTION *>(
        vo___ObjCreate(sizeof(XML_SELECTION), xmlSelectionSort()));
    selection->state = vo::make<xml::Selection>(path, cursor);
    return selection;
}

int xmlSelectionNext(XML_SELECTION *selection) {
    auto &state = *VO_READ(selection)->state;
    return state.isOnNode = state.walk.next();
}

XML_CURSOR *xmlSelectionCursor(XML_SELECTION *selection) {
    VO_ASSERT(selection);
    VO_ASSERT(selection->state->isOnNode);
    return selection->state->node.cursor();
}

XML_UTF8 xmlSelectionText(XML_SELECTION *selection) {
    VO_ASSERT(selection);
    VO_ASSERT(selection->state->isOnNode);
    xml::PathString &text = selection->state->text;
    text.clear();
    selection->state->node.appendString(text);
    const std::string_view view = text.view();
    return {view.data() ? view.data() : "", int64_t(view.size())};
}

int64_t xmlSelectionDepth(XML_SELECTION *selection) {
    VO_ASSERT(selection);
    VO_ASSERT(selection->state->isOnNode);
    return int64_t(selection->state->node.depth());
}

int64_t xmlSelectionIndexAt(XML_SELECTION *selection, int64_t level) {
    VO_ASSERT(selection);
    VO_ASSERT(selection->state->isOnNode);
    const xml::PathNode &node = selection->state->node;
    VO_ASSERT(level >= 0 && level < int64_t(node.depth()));
    return node.spotAt(size_t(level) + 1).index;
}
