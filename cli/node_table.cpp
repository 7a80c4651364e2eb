#include "node_table.hpp"

#include <algorithm>
#include <functional>

namespace tool {

// ---------------------------------------------------------------- walking

static constexpr std::string_view space = " \t\r\n";

NodeWalker::NodeWalker(const Decoded &decoded, Comparison comparison)
    : at(comparison.namespaces ? xmlCursorCreateNs(decoded.nsDocument)
                               : xmlCursorCreate(decoded.document)),
      ignoreSpace(comparison.ignoreSpace) {}

bool NodeWalker::toFirstChild() {
    passedTexts = 0;
    if (!xmlCursorFirstChild(at)) return false;
    if (skipIgnored()) return true;
    xmlCursorParent(at);
    return false;
}

bool NodeWalker::toNext() {
    passedTexts = 0;
    return xmlCursorNext(at) && skipIgnored();
}

/// Goes on to a node that counts; false when there is none.
bool NodeWalker::skipIgnored() {
    for (; ignoreSpace && isSpace(); ++passedTexts)
        if (!xmlCursorNext(at)) return false;
    return true;
}

bool NodeWalker::isSpace() const {
    return xmlCursorType(at) == XML_ITEM_TYPE_TEXT &&
           view(xmlCursorValue(at)).find_first_not_of(space) == std::string_view::npos;
}

std::string NodeWalker::name() const {
    const XML_UTF8 ns = xmlCursorNamespace(at);
    std::string name = ns.bytes ? "{" + std::string(view(ns)) + "}" : "";
    return name.append(view(xmlCursorName(at)));
}

/// The words of a text with a blank between them.
static void joinWords(std::string_view text, std::string &words) {
    words.clear();
    for (size_t from = text.find_first_not_of(space); from != text.npos;) {
        const size_t to = std::min(text.find_first_of(space, from), text.size());
        if (!words.empty()) words += ' ';
        words.append(text.substr(from, to - from));
        from = text.find_first_not_of(space, to);
    }
}

std::string_view NodeWalker::value(bool &isResolved) {
    const XML_UTF8 plain = xmlCursorValueTryUnescape(at);
    isResolved = plain.bytes;
    const std::string_view whole = view(isResolved ? plain : xmlCursorValue(at));
    if (!ignoreSpace || xmlCursorType(at) != XML_ITEM_TYPE_TEXT) return whole;
    joinWords(whole, room);
    return room;
}

uint32_t NameTable::numberOf(std::string name) {
    const auto [found, isNew] =
        numbers.emplace(std::move(name), static_cast<uint32_t>(names.size()));
    if (isNew) names.push_back(&found->first);
    return found->second;
}

// ---------------------------------------------------------------- hashes

/// Spreads what two numbers tell over all bits of one; their order counts.
static uint64_t mixed(uint64_t a, uint64_t b) {
    constexpr uint64_t odd = 0x9E3779B97F4A7C15, factor = 0xBF58476D1CE4E5B9,
                       other = 0x94D049BB133111EB;
    uint64_t hash = a * odd + b;
    hash = (hash ^ (hash >> 30)) * factor;
    hash = (hash ^ (hash >> 27)) * other;
    return hash ^ (hash >> 31);
}

static uint64_t hashOf(NodeWalker &walker) {
    bool isResolved = true;
    const uint64_t hash = std::hash<std::string_view>()(walker.value(isResolved));
    return isResolved ? hash : mixed(hash, 1);
}

// ---------------------------------------------------------------- the table

class NodeTable::Builder {
  public:
    Builder(NodeTable &built, NameTable &nameTable, NodeWalker &&reader)
        : table(built), names(nameTable), walker(std::move(reader)) {}

    void build() {
        table.nodes.push_back({0, 0, 0, 0, XML_CURSOR_TYPE_DOCUMENT, false});
        do {
            if (walker.toFirstChild()) {
                open.push_back({table.nodes.size() - 1});
                add();
                continue;
            }
            table.nodes.back().end = table.nodes.size();
            while (!open.empty() && !walker.toNext())
                close();
            if (!open.empty()) add();
        } while (!open.empty());
    }

  private:
    struct Open {
        size_t node;
        uint32_t texts = 0; ///< As XPath counts them: those side by side are one.
        bool isInText = false;
        size_t lastText = 0;
    };

    void add() {
        XML_CURSOR *cursor = walker.cursor();
        Node node{0, 0, table.attributeHashes.size(), 0, xmlCursorType(cursor), walker.isSpace()};
        if (node.type == XML_ITEM_TYPE_ELEMENT) {
            node.name = number();
            node.content = attributes();
        } else {
            node.content = hashOf(walker);
        }
        const bool isText = node.type == XML_ITEM_TYPE_TEXT || node.type == XML_ITEM_TYPE_CDATA;
        Open &parent = open.back();
        countText(parent, isText || walker.passed() > 0);
        if (isText) {
            node.name = parent.texts;
            parent.lastText = table.nodes.size();
        }
        parent.isInText = isText;
        table.nodes.push_back(node);
    }

    static void countText(Open &parent, bool isText) {
        if (isText && !parent.isInText) ++parent.texts;
    }

    void close() {
        Open &last = open.back();
        countText(last, walker.passed() > 0);
        if (last.texts == 1 && last.lastText) table.nodes[last.lastText].name = 0;
        Node &node = table.nodes[last.node];
        node.end = table.nodes.size();
        for (size_t child = last.node + 1; child < node.end; child = table.nodes[child].end) {
            const Node &item = table.nodes[child];
            const uint64_t name = item.type == XML_ITEM_TYPE_ELEMENT ? item.name : 0;
            node.content = mixed(node.content,
                                 mixed(item.content, name * 8 + static_cast<uint64_t>(item.type)));
        }
        walker.toParent();
        open.pop_back();
    }

    /// Gives a hash of all.
    uint64_t attributes() {
        const size_t first = table.attributeHashes.size();
        const auto addOne = [this] {
            const uint32_t name = number();
            table.attributeHashes.push_back(mixed(hashOf(walker), name));
        };
        visitAttributes(addOne, walker.cursor());
        uint64_t all = 0;
        std::sort(table.attributeHashes.begin() + static_cast<ptrdiff_t>(first),
                  table.attributeHashes.end());
        for (size_t i = first; i < table.attributeHashes.size(); ++i)
            all = mixed(all, table.attributeHashes[i]);
        return all;
    }

    uint32_t number() { return names.numberOf(walker.name()); }

    NodeTable &table;
    NameTable &names;
    NodeWalker walker;
    std::vector<Open> open;
};

NodeTable::NodeTable(const Decoded &decoded, Comparison comparison, NameTable &names) {
    Builder(*this, names, NodeWalker(decoded, comparison)).build();
}

std::span<const uint64_t> NodeTable::attributesOf(size_t number) const {
    const size_t from = nodes[number].attributes;
    const size_t to =
        number + 1 < nodes.size() ? nodes[number + 1].attributes : attributeHashes.size();
    return std::span(attributeHashes).subspan(from, to - from);
}

std::vector<size_t> NodeTable::childrenOf(size_t number) const {
    std::vector<size_t> children;
    for (size_t child = number + 1; child < nodes[number].end; child = nodes[child].end)
        children.push_back(child);
    return children;
}

} // namespace tool
