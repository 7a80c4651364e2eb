// The outline of a decoded text: where each node and attribute stands in it.
//
// Decoding checks the whole text and writes a record for each node and attribute. Objects are made
// from the records on demand (xml_outline_objects.hpp); the encoder, the namespace decoder and the
// cursor read the records themselves. Text and records never change once they are made, so any
// number of threads may read them.
#pragma once

#include "source/vo/vo_allocator.hpp"
#include "source/vo/vo_array.hpp"
#include "source/vo/vo_chunk.hpp"
#include "source/xml/base/xml_locator.hpp"
#include "source/xml/base/xml_piece.hpp"
#include "xml/xml_item_type.h"

#include <algorithm>
#include <span>

namespace xml {

/// What a record is about: an item, by its type, or an attribute.
using Kind = XML_ITEM_TYPE;
inline constexpr Kind attributeKind = XML_ITEM_TYPE_CDATA + 1;
inline constexpr int kindBits = 3;
static_assert(!XML_ITEM_TYPE_OK(attributeKind) && attributeKind < 1 << kindBits);
static_assert(std::size(enclosing) == attributeKind + 1);

/// One node or attribute. Records stand in document order: behind an element its attributes, then
/// its content. `begin` and `end` are offsets in the text, in bytes, but for the `end` of an
/// element.
template <class Word> struct Record {
    Word begin; ///< The "<" of an element, an attribute's name, or the value of another node.
    Word end;   ///< The end of the value; of an element the number of the record behind it.
    Word tag;   ///< The kind; above it, in elements and attributes, the number of the name.
};

/// Texts up to this length need words of 32 bits only. The numbers of their names fit into the 29
/// bits of a tag: most different names take eight bytes and more.
inline constexpr uint64_t mostCompactBytes = 4'000'000'000;

/// A record as its readers see it, whatever its width.
struct Node {
    Kind kind;
    uint64_t begin;
    uint64_t end;
    uint64_t name;
};

class ObjectMaker;

/// What an outline is about: the text and what its declaration says.
struct DecodedText {
    vo::Ref<voBuffer> buffer;
    Piece text{};        ///< UTF-8, in `buffer`; only a byte-order mark may stand before it.
    voCharset charset{}; ///< Of the document.
    Piece version{};     ///< Empty when the declaration has none.
    bool standalone = false;
    uint64_t content = 0; ///< The place behind the declaration.
};

/// The records of a block.
template <class Word> Record<Word> *recordsIn(void *chunk) {
    return reinterpret_cast<Record<Word> *>(static_cast<vo::Chunk *>(chunk) + 1);
}

/// The records of one text, numbered from 0, and what is made from them.
struct Outline {
    voObj base;
    DecodedText source;
    bool isWide;               ///< Which of the two types of record it has.
    uint64_t count;            ///< Records.
    vo::Vec<void *> blocks;    ///< Further records, as chunks; the first ones stand behind this.
    std::span<Piece> names;    ///< By their numbers; the array stands behind the first records.
    vo::Vec<uint64_t> patches; ///< Offsets of tags that are not in the canonical layout, ascending.
    Locator *locator;   ///< Null unless locations were asked for; used under makingLock(this).
    ObjectMaker *maker; ///< Made with the first object; used under makingLock(this).

    /// Stands for the document where a function takes the number of an element.
    static constexpr uint64_t root = UINT64_MAX;

    template <class Word>
    static constexpr uint64_t perBlock = (uint64_t{vo::Chunk::largest} - sizeof(vo::Chunk)) /
                                         sizeof(Record<Word>);

    Node node(uint64_t number) const {
        return isWide ? widened(record<uint64_t>(number)) : widened(record<uint32_t>(number));
    }

    /// The records of a block, by its number.
    template <class Word> const Record<Word> *block(uint64_t index) const {
        return index ? recordsIn<Word>(blocks[index - 1])
                     : reinterpret_cast<const Record<Word> *>(this + 1);
    }

    const uint8_t *at(uint64_t place) const { return source.text.begin + place; }
    Piece pieceOf(const Node &node) const { return {at(node.begin), at(node.end)}; }

    /// An attribute's value as it stands between the quotes.
    Piece valueOf(const Node &attribute) const {
        const uint8_t *nameEnd = at(attribute.begin) + names[attribute.name].size();
        const bool isPlain = nameEnd[0] == '=' && nameEnd[1] > ' ';
        return {isPlain ? nameEnd + 2 : valueBehind(nameEnd), at(attribute.end)};
    }

    /// The first record behind that of an element and those of its attributes.
    uint64_t behindAttributes(uint64_t element) const;

    /// The first record of the content of an element, or of the document; and the one behind it.
    uint64_t firstIn(uint64_t element) const {
        return element == root ? 0 : behindAttributes(element);
    }
    uint64_t behindContent(uint64_t element) const {
        return element == root ? count : node(element).end;
    }

    /// The record behind a node and all that it holds.
    uint64_t behind(uint64_t number) const {
        const Node found = node(number);
        return found.kind == XML_ITEM_TYPE_ELEMENT ? found.end : number + 1;
    }

    /// Where the markup or text of a node begins.
    static uint64_t placeOf(const Node &node) {
        return node.begin - enclosing[node.kind].before.size();
    }

    /// Where the end tag of an element with content begins, and where a node ends. Takes time in
    /// proportion to the number of nodes along the last children, from the element down.
    uint64_t endTagPlaceOf(uint64_t element) const { return endTagPlace(element, -1); }
    uint64_t endPlaceOf(uint64_t number) const { return endTagPlace(number, 0); }

    /// The places between which the content of an element, or of the document, stands.
    struct Extent {
        uint64_t from, to;
    };
    Extent contentOf(uint64_t element) const;

    template <class Word> static Kind kindOf(const Record<Word> &record) {
        constexpr Word kinds = (Word{1} << kindBits) - 1;
        return Kind(record.tag & kinds);
    }
    template <class Word> static Node widened(const Record<Word> &record) {
        return {kindOf(record), record.begin, record.end, record.tag >> kindBits};
    }

  private:
    const uint8_t *valueBehind(const uint8_t *nameEnd) const;
    const uint8_t *behindLeaf(uint64_t number) const;
    uint64_t endTagPlace(uint64_t number, int64_t outer) const;

    template <class Word> const Record<Word> &record(uint64_t number) const {
        return block<Word>(number / perBlock<Word>)[number % perBlock<Word>];
    }
};

/// Memory for an outline with `recordBytes` bytes of records behind it. Until makeOutline() it is
/// an object without parts.
voObj *createOutlineMemory(uint64_t recordBytes);

/// Makes that memory an outline; it may move. `room` is what createOutlineMemory() was given,
/// `recordBytes` how much of it is used. The outline has room for `names` names, which are not set.
Outline *makeOutline(voObj *memory, uint64_t room, uint64_t recordBytes, uint64_t names);

} // namespace xml
