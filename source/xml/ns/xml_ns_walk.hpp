// Walking a namespace tree, parts of which may be objects and other parts records of an outline.
#pragma once

#include "source/xml/base/xml_item.hpp"
#include "source/xml/base/xml_text.hpp"
#include "source/xml/ns/xml_ns_attribute.hpp"
#include "source/xml/ns/xml_ns_attributes.hpp"
#include "source/xml/ns/xml_ns_conversion.hpp"
#include "source/xml/ns/xml_ns_element.hpp"
#include "source/xml/ns/xml_ns_item.hpp"
#include "source/xml/ns/xml_ns_items.hpp"
#include "source/xml/ns/xml_ns_namespace_map.hpp"

namespace xml {

/// An element that is an object.
struct NsObjectElement {
    XML_NS_ELEMENT *element;

    voString *ns() const { return element->ns; }
    voString *local() const { return element->localName; }
    size_t attributes() const { return size_t(element->attributes->vector->length); }
    static bool isAttribute(size_t) { return true; }
    voString *ns(size_t i) const { return at(i)->ns; }
    voString *local(size_t i) const { return at(i)->localName; }
    voString *value(size_t i) const { return at(i)->text->value; }
    XML_TEXT *createText(size_t i) const { return vo::retained(at(i)->text); }
    vo::Ref<XML_NS_NAMESPACE_MAP> declared() const {
        return vo::Ref(vo::retained(element->namespaceMap));
    }

  private:
    XML_NS_ATTRIBUTE *at(size_t i) const {
        return reinterpret_cast<XML_NS_ATTRIBUTE *>(element->attributes->vector->items()[i]);
    }
};

/// An element that is a record of an outline.
struct NsRecordedElement {
    NsOutline *source;
    uint64_t number;
    uint64_t content; ///< The first record behind its attributes.

    voString *ns() const { return namespaceOf(source->numbersOf(number)[0]); }
    Piece local() const { return localOf(node(number)); }
    size_t attributes() const { return size_t(content - number - 1); }
    bool isAttribute(size_t i) const { return isNsAttribute(numbers()[i]); }
    voString *ns(size_t i) const { return namespaceOf(numbers()[i]); }
    Piece local(size_t i) const { return localOf(attribute(i)); }
    Piece value(size_t i) const { return outline().valueOf(attribute(i)); }
    XML_TEXT *createText(size_t i) const;
    /// The map of its declarations, or null: made for the caller, not that of the element.
    vo::Ref<XML_NS_NAMESPACE_MAP> declared() const;

  private:
    const Outline &outline() const { return *source->outline; }
    Node node(uint64_t record) const { return outline().node(record); }
    Node attribute(size_t i) const { return node(number + 1 + i); }
    const NsNumber *numbers() const { return source->numbersOf(number) + 1; }
    voString *namespaceOf(NsNumber ns) const { return source->shared->namespaces[ns]; }
    Piece localOf(const Node &named) const { return localPart(outline().names[named.name]); }
};

/// Where a walk has come to in the items of an element, or of the document.
struct NsWalkLevel {
    voVector *vector = nullptr; ///< Of the items if they are objects, else null.
    int64_t index = 0;          ///< Of the next item in the vector.
    uint64_t next = 0;          ///< The next record if they are records,
    uint64_t end = 0;           ///< and the one behind the last record.
};

/// Goes through a tree in document order for `Visitor`, which derives from this. Open elements wait
/// on a stack, so that depth costs memory and never the call stack; a `Level`, which derives from
/// NsWalkLevel, is what is kept for the document and for each of them. The visitor has
///
///     static constexpr bool readsRecords;    otherwise all is made an object
///     void element(Element, Level &);        of either kind, with its new level
///     void entered(Level &, int64_t length); the same when its items are known; 0: there are none
///     void left(Level &);
///     void node(XML_NS_ITEM *);              items that are no elements
///     void node(const Outline &, const Node &);
template <class Visitor, class Level> class NsWalk {
  public:
    void walk(XML_NS_ITEMS *items) {
        open.emplace_back();
        enter(items);
        while (!open.empty())
            step();
    }

  protected:
    auto &levels() { return open; }

  private:
    Visitor &visitor() { return static_cast<Visitor &>(*this); }

    void step() {
        auto &level = open.back();
        if (level.vector && level.index < level.vector->length) {
            item(reinterpret_cast<XML_NS_ITEM *>(level.vector->items()[level.index++]));
        } else if (!level.vector && level.next < level.end) {
            const uint64_t number = level.next;
            level.next = source->outline->behind(number);
            record(number);
        } else {
            visitor().left(level);
            open.pop_back();
        }
    }

    void item(XML_NS_ITEM *item) {
        if (hold(item->value)) return record(item->number());
        if (item->type() != XML_ITEM_TYPE_ELEMENT) return visitor().node(item);
        auto *element = reinterpret_cast<XML_NS_ELEMENT *>(nodeOf(item));
        open.emplace_back();
        visitor().element(NsObjectElement{element}, open.back());
        enter(element->items);
    }

    void enter(XML_NS_ITEMS *items) {
        if (hold(items->itemsVector))
            return enter(source->outline->firstIn(items->element),
                         source->outline->behindContent(items->element));
        auto &level = open.back();
        level.vector = vectorOf(items);
        visitor().entered(level, level.vector->length);
    }

    void record(uint64_t number) {
        const Node node = source->outline->node(number);
        if (node.kind != XML_ITEM_TYPE_ELEMENT) return visitor().node(*source->outline, node);
        open.emplace_back();
        const uint64_t content = source->outline->behindAttributes(number);
        visitor().element(NsRecordedElement{source, number, content}, open.back());
        enter(content, node.end);
    }

    void enter(uint64_t next, uint64_t end) {
        auto &level = open.back();
        level.next = next;
        level.end = end;
        visitor().entered(level, int64_t(end - next));
    }

    /// Whether a part is not made and may stay so; then `source` is set to the outline that it
    /// would be made from.
    template <class T> bool hold(const OnDemand<T, NsOutline> &part) {
        return Visitor::readsRecords && part.hold(source);
    }

    vo::Vec<Level> open;
    vo::Ref<NsOutline> source; ///< The outline that hold() has found last.
};

} // namespace xml
