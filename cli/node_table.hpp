// The nodes of a document in a form that is quickly compared.
#pragma once

#include "cursor.hpp"

#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace tool {

/// What counts when documents are compared.
struct Comparison {
    bool namespaces = false;  ///< Names are pairs of namespace and local name.
    bool ignoreSpace = false; ///< Texts of white space do not count, nor how others are broken.
};

/// A cursor that knows what counts.
class NodeWalker {
  public:
    NodeWalker(const Decoded &decoded, Comparison comparison);

    /// These pass over texts that do not count.
    bool toFirstChild();
    bool toNext();
    void toParent() { xmlCursorParent(at); }

    /// How many texts the last step has passed over.
    uint32_t passed() const { return passedTexts; }

    XML_CURSOR *cursor() const { return at; }

    /// Whether it stands on a text of white space.
    bool isSpace() const;

    /// The name as messages show it: with its namespace, if that counts.
    std::string name() const;

    /// What counts of the value, valid until the walker is used again. References that cannot be
    /// resolved are part of it; then `isResolved` is false.
    std::string_view value(bool &isResolved);

  private:
    bool skipIgnored();

    Ref<XML_CURSOR> at;
    const bool ignoreSpace;
    uint32_t passedTexts = 0;
    std::string room;
};

/// The names of both documents, by numbers.
class NameTable {
  public:
    uint32_t numberOf(std::string name);
    const std::string &operator[](uint32_t number) const { return *names[number]; }
    size_t size() const { return names.size(); }

  private:
    std::unordered_map<std::string, uint32_t> numbers;
    std::vector<const std::string *> names;
};

/// The document and the nodes below it in document order. That two nodes are equal is told by their
/// hashes, which differ for different content but in one of 2^64 cases.
class NodeTable {
  public:
    struct Node {
        uint64_t content;  ///< Hash of all but the name: attributes in any order, value, items. 0
                           ///< for an element that has none.
        size_t end;        ///< The number of the node behind this one and what it holds.
        size_t attributes; ///< Where the hashes of its attributes begin.
        uint32_t name;     ///< Of an element; of a text its position, see positionOfText().
        XML_ITEM_TYPE type;
        bool isSpace; ///< A text of white space.
    };

    NodeTable(const Decoded &decoded, Comparison comparison, NameTable &names);

    const Node &operator[](size_t number) const { return nodes[number]; }

    /// In ascending order.
    std::span<const uint64_t> attributesOf(size_t number) const;

    std::vector<size_t> childrenOf(size_t number) const;

    /// The position among the texts of the same parent, from 1, or 0 for the only one.
    uint32_t positionOfText(size_t number) const { return nodes[number].name; }

  private:
    class Builder;

    std::vector<Node> nodes;
    std::vector<uint64_t> attributeHashes;
};

/// Whether the nodes may be versions of the same one: of one type and, if elements, of one name.
inline bool areAlike(const NodeTable::Node &a, const NodeTable::Node &b) {
    return a.type == b.type && (a.type != XML_ITEM_TYPE_ELEMENT || a.name == b.name);
}

inline bool areEqual(const NodeTable::Node &a, const NodeTable::Node &b) {
    return a.content == b.content && areAlike(a, b);
}

} // namespace tool
