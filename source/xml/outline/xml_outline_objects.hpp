// Makes objects from an outline.
#pragma once

#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_character_data.hpp"
#include "source/xml/base/xml_element.hpp"
#include "source/xml/base/xml_hash_table.hpp"
#include "source/xml/base/xml_item.hpp"
#include "source/xml/base/xml_items.hpp"
#include "source/xml/base/xml_text.hpp"
#include "source/xml/outline/xml_outline.hpp"
#include "source/xml/outline/xml_read_ahead.hpp"
#include "vo/vo.h"
#include "xml/xml_cdata.h"
#include "xml/xml_comment.h"
#include "xml/xml_processing_instruction.h"

#include <array>

namespace xml {

/// An object that many others will hold. References to it are taken 256 at a time, so that most
/// need no atomic operation.
template <class T> class Stock {
  public:
    Stock() = default;
    explicit Stock(T *adopted) : object(adopted) {}
    Stock(Stock &&other) noexcept
        : object(std::exchange(other.object, nullptr)), left(std::exchange(other.left, 0)) {}
    Stock &operator=(Stock &&other) noexcept {
        std::swap(object, other.object);
        std::swap(left, other.left);
        return *this;
    }
    ~Stock() {
        if (left) vo::obj(object)->refs.fetch_sub(left, std::memory_order_relaxed);
        vo::release(object);
    }

    explicit operator bool() const { return object; }

    /// A new reference.
    T *take() {
        if (left == 0) vo::retainTimes(object, left = 256);
        --left;
        return object;
    }

  private:
    T *object = nullptr;
    int64_t left = 0;
};

/// Makes the objects of one outline. They are ordinary objects, but cheaper than those that the
/// constructors make: they lie in chunks, mostly in document order; vectors have their final size;
/// each name is one string; all empty lists are one object, and so are items with texts of the same
/// white space unless they have locations. For one thread at a time.
class ObjectMaker {
  public:
    explicit ObjectMaker(Outline &decoded);

    /// The items of an element, or of the document. Unless `whole` is true the nodes of some or all
    /// of them are left to be made on demand.
    voVector *items(uint64_t element, bool whole);

    /// A node that is no attribute. Unless `whole` is true an element's items may be left.
    voObj *node(uint64_t number, bool whole);

    /// A new reference to the string of a name.
    voString *name(uint64_t number);

  private:
    struct Open {
        XML_ELEMENT *element;
        uint64_t end;      ///< The record behind its content.
        size_t firstChild; ///< In `children`.
    };

    /// The item of a text that is nothing but white space.
    struct Blank {
        std::string_view bytes; ///< In the text that was decoded.
        Stock<XML_ITEM> item;
    };

    XML_ITEM *leafItem(const Node &node);
    XML_ITEM *createLeafItem(const Node &node);
    XML_ITEM *pendingItem(uint64_t tag);
    XML_ELEMENT *element(const Node &node, uint64_t number, uint64_t content);
    void addItems(uint64_t number, uint64_t end);
    CharacterData *characterData(const Node &node);
    XML_ITEM *blankItem(const Node &node);
    XML_ATTRIBUTES *attributes(uint64_t begin, uint64_t end);
    XML_ATTRIBUTE *attribute(const Node &node);
    XML_ITEMS *list(size_t firstChild);
    XML_ITEMS *pendingList(uint64_t element);
    voVector *takeChildren(size_t firstChild);
    voString *string(Piece piece);
    bool isAscii(Piece piece) {
        return (piece.begin >= ascii.begin && piece.end <= ascii.end) || lookForAscii(piece);
    }
    bool lookForAscii(Piece piece);
    bool widenInBlocks(uint32_t *out, Piece piece) const;
    voParserLocation *location(const Node &node) {
        return outline.locator ? outline.locator->locate(outline.at(Outline::placeOf(node)))
                               : nullptr;
    }
    template <class T> vo::Unset<T> create(voSort *sort) { return place.create<T>(sort); }

    /// Looked up once, since getting a sort is a call into a library.
    struct Sorts {
        voSort *string = voStringSort(), *vector = voVectorSort(), *item = xmlItemSort(),
               *items = xmlItemsSort(), *element = xmlElementSort(),
               *attribute = xmlAttributeSort(), *attributes = xmlAttributesSort(),
               *text = xmlTextSort(),
               *nodes[attributeKind] = {element, xmlProcessingInstructionSort(), xmlCommentSort(),
                                        text, xmlCdataSort()};
    };

    Outline &outline;
    Sorts sorts;
    vo::ChunkPlacer place;
    ReadAhead ahead;
    vo::Vec<Stock<voString>> names; ///< By their numbers; empty until they are asked for.
    Stock<XML_ATTRIBUTES> noAttributes;
    Stock<XML_ITEMS> noItems;
    HashTable<Blank> blanks;
    std::array<Blank *, 64> lastBlanks{}; ///< The last one of each length.
    vo::Vec<Open> open;
    vo::Vec<XML_ITEM *> children; ///< Of the open elements, in document order.
    Piece ascii;                  ///< A piece of the text that is known to be ASCII.
};

/// The maker of an outline's objects. The caller holds the outline's lock.
ObjectMaker &makerOf(Outline *outline);

/// A list for the document's items, which are left to be made on demand; adopts the outline.
XML_ITEMS *createRootItems(vo::Ref<Outline> outline);

} // namespace xml
