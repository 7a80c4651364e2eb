// A node as paths see it.
#pragma once

#include "source/vo/vo_object.hpp"
#include "source/xml/cursor/xml_cursor.hpp"
#include "source/xml/path/xml_path_value.hpp"

namespace xml {

/// Moves over a tree node by node, where adjacent texts and CDATA sections are one node, those that
/// are empty or beside the root are none, and declarations of namespaces are no attributes. It does
/// not leave the node that it was made for, its top.
class PathNode {
  public:
    explicit PathNode(vo::Ref<XML_CURSOR> top);

    /// A node among those with the same parent.
    struct Spot {
        uint64_t number; ///< See giveNumbers().
        int64_t index;   ///< Among the items or attributes of the parent, as the cursor sees them.
        bool isAttribute;
    };

    // When a move to a first or next node fails, only toParent() may follow the latter.

    bool toFirstChild();
    bool toFirstAttribute();
    bool toNext();
    bool toParent();

    /// To the child or attribute on a spot that it stood on before.
    void toSpot(const Spot &wanted);

    const Spot &spot() const { return here; }
    /// How far below the top it is.
    size_t depth() const { return above.size(); }
    /// The spot of the node around it at a lesser depth.
    const Spot &spotAt(size_t level) const { return level < depth() ? above[level] : here; }
    /// The parent must be there.
    const Spot &parent() const { return above.back(); }

    XML_ITEM_TYPE type() const { return xmlCursorType(at); }
    XML_CURSOR *cursor() const { return at; }
    bool matches(const NodeTest &test) const;

    /// Calls `visit` with the pieces of the string value, until it gives false.
    template <class Visit> void eachPiece(Visit visit) const;
    void appendString(PathString &out) const {
        eachPiece([&](std::string_view piece) { return out.append(piece), true; });
    }

    /// Whether that is the string value.
    bool equals(std::string_view text) const {
        bool isEqual = true;
        eachPiece([&](std::string_view piece) {
            isEqual = text.starts_with(piece);
            if (isEqual) text.remove_prefix(piece.size());
            return isEqual;
        });
        return isEqual && text.empty();
    }

    /// Numbers the top, with 0, and all items below in document order. It must stand on the top.
    void giveNumbers();
    uint64_t numbers() const { return behind.size(); }

  private:
    static bool isText(XML_ITEM_TYPE type) {
        return type == XML_ITEM_TYPE_TEXT || type == XML_ITEM_TYPE_CDATA;
    }
    bool step();
    void enter(bool attributes);
    bool settle();
    bool isDeclaration() const;
    bool matchesName(const NodeTest &test) const;
    std::string_view value() const;
    template <class Visit> void eachPieceBelow(Visit visit) const;
    template <class Visit> void eachPieceOfRun(Visit visit) const;

    vo::Ref<XML_CURSOR> at;
    Spot here{0, 0, false};
    vo::Vec<Spot> above;
    vo::Vec<uint64_t> behind; ///< By number the one behind the node and all below; or empty.
    bool isDocument;          ///< Whether the top is one.
};

/// The target of a processing instruction, and the data behind it.
struct Instruction {
    std::string_view target, data;
};
Instruction instructionIn(std::string_view value);

template <class Visit> void PathNode::eachPiece(Visit visit) const {
    switch (const XML_ITEM_TYPE kind = type()) {
    case XML_ITEM_TYPE_ELEMENT:
    case XML_CURSOR_TYPE_DOCUMENT:
        return eachPieceBelow(visit);
    case XML_ITEM_TYPE_PROCESSING_INSTRUCTION:
        return void(visit(instructionIn(value()).data));
    default:
        if (visit(value()) && isText(kind) && isText(typeOfNext(at))) eachPieceOfRun(visit);
    }
}

/// Those of all texts below. The way back is walked even when `visit` wants no more.
template <class Visit> void PathNode::eachPieceBelow(Visit visit) const {
    bool more = true;
    const bool skips = depth() == 0 && isDocument;
    size_t level = 0;
    do {
        if (level > 0 && isText(type()) && !(skips && level == 1)) more = visit(value());
        if (more && xmlCursorFirstChild(at)) {
            ++level;
            continue;
        }
        for (; level > 0 && !(more && xmlCursorNext(at)); --level)
            (void)xmlCursorParent(at);
    } while (level > 0);
}

/// Those behind the first, by a second cursor.
template <class Visit> void PathNode::eachPieceOfRun(Visit visit) const {
    PathNode copy(vo::Ref(xmlCursorCreateFrom(at)));
    while (xmlCursorNext(copy.at) && isText(copy.type()) && visit(copy.value())) {
    }
}

} // namespace xml
