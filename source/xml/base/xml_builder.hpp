// Makes the objects of one decoded document.
#pragma once

#include "source/vo/vo_array.hpp"
#include "source/vo/vo_chunk.hpp"
#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_element.hpp"
#include "source/xml/base/xml_item.hpp"
#include "source/xml/base/xml_items.hpp"
#include "source/xml/base/xml_names.hpp"
#include "source/xml/base/xml_text.hpp"
#include "vo/vo.h"
#include "xml/xml_item_type.h"

#include <array>
#include <span>

namespace xml {

/// A piece of the UTF-8 text that is being decoded.
struct Piece {
    const uint8_t *begin;
    const uint8_t *end;

    int64_t size() const { return end - begin; }
    std::string_view bytes() const {
        return {reinterpret_cast<const char *>(begin), size_t(size())};
    }
};

/// The only place where decoding creates tree objects. What it gives is an ordinary tree, but it
/// is cheaper than what the constructors give: objects lie in chunks in document order, vectors
/// have their final size, names are one string each, empty lists are one object, and so are equal
/// runs of white space. All values must be valid; the builder adopts the references it is handed.
///
/// Until a document is handed out nobody else sees its objects, so the builder counts references
/// without atomic operations.
class Builder {
  public:
    /// `text` is what will be decoded; pieces and names must lie in it.
    explicit Builder(Piece text);
    ~Builder();

    /// The name's entry; one for all places where the name occurs.
    Name *name(const Piece &piece) { return names.intern(*this, piece.bytes()); }

    voString *string(const Piece &piece);

    XML_ATTRIBUTE *attribute(Name *name, const Piece &value, voParserLocation *location);

    /// An item with an element that still lacks its children. `attributes` are adopted.
    XML_ITEM *element(Name *name, std::span<XML_ATTRIBUTE *> attributes,
                      voParserLocation *location);

    /// Gives an element its children, which are adopted and may be none.
    void setChildren(XML_ELEMENT *element, std::span<XML_ITEM *> children);

    XML_ITEMS *items(std::span<XML_ITEM *> items);

    /// A text item. `location` may be null.
    XML_ITEM *text(const Piece &value, voParserLocation *location);

    /// An item with a comment, a processing instruction or a CDATA section.
    template <class Node> XML_ITEM *characterData(XML_ITEM_TYPE type, voSort *sort,
                                                  const Piece &value, voParserLocation *location) {
        auto [item, node] = itemWith<Node>(type, sort);
        node->location = location;
        node->value = string(value);
        return item;
    }

  private:
    template <class T> static T *share(T *object) {
        auto &refs = vo::obj(object)->refs;
        refs.store(refs.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
        return object;
    }

    template <class Node> struct ItemWith {
        XML_ITEM *item;
        Node *node;
    };

    template <class Node> ItemWith<Node> itemWith(XML_ITEM_TYPE type, voSort *sort) {
        auto *item = place.create<XML_ITEM>(sorts.item);
        auto *node = place.create<Node>(sort);
        item->type = type;
        item->value = vo::obj(node);
        return {item, node};
    }

    template <class T> voVector *vector(std::span<T *> objects);
    bool isAscii(const Piece &piece);
    bool widenInBlocks(uint32_t *out, const Piece &piece) const;

    /// Looked up once: each sort is behind a call into a library.
    struct Sorts {
        voSort *string = voStringSort(), *vector = voVectorSort(), *item = xmlItemSort(),
               *items = xmlItemsSort(), *element = xmlElementSort(), *text = xmlTextSort(),
               *attribute = xmlAttributeSort(), *attributes = xmlAttributesSort();
    };

    /// A run of white space that came lately.
    struct Blank {
        std::string_view bytes;
        XML_ITEM *item = nullptr;
    };

    Sorts sorts;
    vo::ChunkPlacer place;
    Names names;
    XML_ATTRIBUTES *noAttributes;
    XML_ITEMS *noItems;
    std::array<Blank, 64> blanks; ///< By length.
    Piece ascii; ///< Known to hold ASCII only; more may follow only at the text's end.
    const uint8_t *textEnd;
};

} // namespace xml
