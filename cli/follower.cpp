#include "follower.hpp"

namespace tool {

static bool isText(XML_CURSOR *cursor) {
    const XML_ITEM_TYPE type = xmlCursorType(cursor);
    return type == XML_ITEM_TYPE_TEXT || type == XML_ITEM_TYPE_CDATA;
}

std::string stepTo(XML_CURSOR *cursor) {
    static constexpr ByItemType<const char *> kinds = {"", "processing-instruction()", "comment()",
                                                       "text()", "text()"};
    const XML_ITEM_TYPE type = xmlCursorType(cursor);
    const bool isAttribute = type == XML_CURSOR_TYPE_ATTRIBUTE;
    if (!isAttribute && type != XML_ITEM_TYPE_ELEMENT) return of(kinds, type);
    std::string step = isAttribute ? "@" : "";
    if (const XML_UTF8 ns = xmlCursorNamespace(cursor); ns.bytes)
        step.append("{").append(view(ns)).append("}");
    return step.append(view(xmlCursorName(cursor)));
}

void Follower::follow(XML_SELECTION *selection) {
    const bool isAttribute =
        xmlCursorType(xmlSelectionCursor(selection)) == XML_CURSOR_TYPE_ATTRIBUTE;
    const auto depth = static_cast<size_t>(xmlSelectionDepth(selection)) - (isAttribute ? 1 : 0);
    const auto wanted = [&](size_t level) {
        return xmlSelectionIndexAt(selection, static_cast<int64_t>(level));
    };
    size_t shared = 0;
    while (shared < depth && shared < levels.size() && levels[shared].index == wanted(shared))
        ++shared;
    // On the first level that differs the node is further on.
    const size_t kept = shared < depth && shared < levels.size() ? shared + 1 : shared;
    for (; levels.size() > kept; levels.pop_back())
        xmlCursorParent(cursor);
    for (size_t level = shared; level < depth; ++level) {
        if (level == levels.size()) enter();
        for (; levels[level].index < wanted(level); count()) {
            xmlCursorNext(cursor);
            ++levels[level].index;
        }
    }
}

void Follower::enter() {
    xmlCursorFirstChild(cursor);
    levels.emplace_back();
    count();
}

/// Texts and CDATA sections that follow each other are one text, unless they are empty.
void Follower::count() {
    if (!isCounting) return;
    Level &level = levels.back();
    const bool wasInText = level.isInText;
    level.isInText = isText(cursor) && (wasInText || xmlCursorValue(cursor).length > 0);
    if (isText(cursor) && (wasInText || !level.isInText)) {
        level.isInText = wasInText;
        return;
    }
    const std::string step = stepTo(cursor);
    level.step = step + "[" + std::to_string(++level.seen[step]) + "]";
}

std::string Follower::path() const {
    std::string path;
    for (const Level &level : levels)
        path.append("/").append(level.step);
    return path.empty() ? "/" : path;
}

} // namespace tool
