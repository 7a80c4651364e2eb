// Reading trees of any depth through cursors.
#pragma once

#include "decode.hpp"

#include <array>
#include <string_view>

namespace tool {

/// Also empty where there is no text, which only `bytes` tells apart.
inline std::string_view view(XML_UTF8 text) {
    return {text.bytes, static_cast<size_t>(text.length)};
}

inline std::optional<Place> placeOf(XML_CURSOR *cursor) {
    Place place{};
    if (!xmlCursorLocation(cursor, &place.offset, &place.line, &place.column)) return std::nullopt;
    return place;
}

/// Something about each item type, in the order of their values.
template <class T> using ByItemType = std::array<T, XML_ITEM_TYPE_CDATA + 1>;
static_assert(!XML_ITEM_TYPE_OK(XML_ITEM_TYPE_CDATA + 1), "the tables lack the types behind it");

template <class T> const T &of(const ByItemType<T> &table, XML_ITEM_TYPE type) {
    return table[static_cast<size_t>(type)];
}

/// Visits the items below the cursor's node in document order, with their depths, from 1 on. A
/// follower is moved along: it stands on the same node of a tree with the same items.
template <class Visit>
void walk(Visit visit, XML_CURSOR *cursor, XML_CURSOR *optionalFollower = nullptr) {
    const auto move = [&](int (*step)(XML_CURSOR *)) {
        if (!step(cursor)) return false;
        if (optionalFollower) step(optionalFollower);
        return true;
    };
    size_t depth = 0;
    do {
        if (depth > 0) visit(depth);
        if (move(xmlCursorFirstChild)) {
            ++depth;
            continue;
        }
        for (; depth > 0 && !move(xmlCursorNext); --depth)
            move(xmlCursorParent);
    } while (depth > 0);
}

/// Calls `enter` on each item below the cursor's node in document order, and `leave` on it behind
/// all that it holds.
template <class Enter, class Leave> void walkThrough(Enter enter, Leave leave, XML_CURSOR *cursor) {
    size_t depth = 0;
    for (;;) {
        if (xmlCursorFirstChild(cursor)) {
            ++depth;
            enter();
            continue;
        }
        for (; depth > 0; xmlCursorParent(cursor), --depth) {
            leave();
            if (xmlCursorNext(cursor)) break;
        }
        if (depth == 0) return;
        enter();
    }
}

/// Visits the attributes of the cursor's node, if it has any.
template <class Visit> void visitAttributes(Visit visit, XML_CURSOR *cursor) {
    if (!xmlCursorFirstAttribute(cursor)) return;
    do
        visit();
    while (xmlCursorNext(cursor));
    xmlCursorParent(cursor);
}

/// Visits those that declare namespaces, in a plain tree.
template <class Visit> void visitDeclarations(Visit visit, XML_CURSOR *cursor) {
    const auto visitOne = [&] {
        const std::string_view name = view(xmlCursorName(cursor));
        if (name == "xmlns" || name.starts_with("xmlns:")) visit();
    };
    visitAttributes(visitOne, cursor);
}

} // namespace tool
