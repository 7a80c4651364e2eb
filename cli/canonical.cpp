#include "canonical.hpp"

#include <set>
#include <utility>

namespace tool {
namespace {

/// The prefix of a name; for attributes without one there is no declaration to look for.
std::string prefixOf(std::string_view name) {
    const size_t colon = name.find(':');
    return std::string(name.substr(0, colon == std::string_view::npos ? 0 : colon));
}

std::string declarationOf(const std::string &prefix) {
    return prefix.empty() ? "xmlns" : "xmlns:" + prefix;
}

bool isElement(XML_CURSOR *cursor) { return xmlCursorType(cursor) == XML_ITEM_TYPE_ELEMENT; }

/// The names of the declarations that an element and what is in it need.
std::set<std::string> neededBy(XML_CURSOR *cursor) {
    std::set<std::string> needed;
    const auto add = [&] {
        if (!isElement(cursor)) return;
        needed.insert(declarationOf(prefixOf(view(xmlCursorName(cursor)))));
        const auto addPrefix = [&] {
            const std::string prefix = prefixOf(view(xmlCursorName(cursor)));
            if (!prefix.empty() && prefix != "xmlns") needed.insert(declarationOf(prefix));
        };
        visitAttributes(addPrefix, cursor);
    };
    add();
    walk([&](size_t) { add(); }, cursor);
    needed.erase("xmlns:xml");
    return needed;
}

void appendAttribute(std::string &out, std::string_view name, std::string_view value) {
    const char quote = value.find('"') == std::string_view::npos ? '"' : '\'';
    out.append(" ").append(name).append("=");
    out += quote;
    out.append(value) += quote;
}

void appendAttributes(std::string &out, XML_CURSOR *cursor) {
    const auto append = [&] {
        appendAttribute(out, view(xmlCursorName(cursor)), view(xmlCursorValue(cursor)));
    };
    visitAttributes(append, cursor);
}

/// Appends the declarations around an element that it needs, the innermost of each name.
void appendDeclarations(std::string &out, XML_CURSOR *cursor) {
    std::set<std::string> needed = neededBy(cursor);
    Ref above(xmlCursorCreateFrom(cursor));
    for (bool isAbove = false; !needed.empty(); isAbove = true) {
        const auto take = [&] {
            const std::string name(view(xmlCursorName(above)));
            const std::string_view value = view(xmlCursorValue(above));
            if (needed.erase(name) != 0 && isAbove && !value.empty())
                appendAttribute(out, name, value);
        };
        visitDeclarations(take, above);
        if (!xmlCursorParent(above)) return;
    }
}

void appendLeaf(std::string &out, XML_CURSOR *cursor) {
    static constexpr ByItemType<std::pair<const char *, const char *>> marks = {
        {{"", ""}, {"<?", "?>"}, {"<!--", "-->"}, {"", ""}, {"<![CDATA[", "]]>"}}};
    const auto &[before, behind] = of(marks, xmlCursorType(cursor));
    out.append(before).append(view(xmlCursorValue(cursor))).append(behind);
}

} // namespace

void appendMarkup(std::string &out, XML_CURSOR *cursor) {
    size_t depth = 0;
    do {
        const bool isWithin = isElement(cursor);
        if (isWithin) {
            out.append("<").append(view(xmlCursorName(cursor)));
            appendAttributes(out, cursor);
            if (depth == 0) appendDeclarations(out, cursor);
        } else if (xmlCursorType(cursor) != XML_CURSOR_TYPE_DOCUMENT) {
            appendLeaf(out, cursor);
        }
        if (xmlCursorFirstChild(cursor)) {
            if (isWithin) out += ">";
            ++depth;
            continue;
        }
        if (isWithin) out += "/>";
        for (; depth > 0 && !xmlCursorNext(cursor); --depth) {
            xmlCursorParent(cursor);
            if (isElement(cursor)) out.append("</").append(view(xmlCursorName(cursor))).append(">");
        }
    } while (depth > 0);
}

} // namespace tool
