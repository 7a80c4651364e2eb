// A place among the records of an outline, and how it moves.
#pragma once

#include "source/vo/vo_inline_vector.hpp"
#include "source/xml/ns/xml_ns_outline.hpp"
#include "source/xml/outline/xml_outline_reader.hpp"
#include "xml/xml_cursor.h"

namespace xml {

/// Walks through the records of an outline, below an object or from a record whose siblings are
/// objects. Its user keeps the outline alive.
///
/// Most trees are read like this, so its functions are meant to be inlined into the public ones.
/// Rare cases, which would make them save registers, are calls at their ends.
class RecordCursor {
  public:
    /// Sets the outline to be read, with the namespaces of its names in a namespace tree.
    void read(const Outline *plain) { read(plain, nullptr); }
    void read(const NsOutline *namespaced) { read(namespaced->outline, namespaced); }

    /// The same place, where the current record is the one that it began on.
    RecordCursor alone() const {
        RecordCursor begun;
        begun.records = records;
        begun.names = names;
        begun.number = number;
        begun.kind = kind;
        begun.behind = behind;
        begun.startsAtRecord = true;
        return begun;
    }

    /// Begins on a record whose item is an object.
    void startAt(uint64_t record) {
        startsAtRecord = true;
        standOn(record);
    }

    /// Begins on the first item of an element that is an object itself; false when there is none.
    bool startIn(uint64_t element) {
        startsAtRecord = false;
        return enter(element, records->firstIn(element), records->behindContent(element));
    }

    /// Whether it is below the record that it began on, or in the list that it began in. Otherwise
    /// its user must find the next node and the parent.
    bool isInside() const { return limit != 0; }

    bool toFirstChild() {
        if (kind != XML_ITEM_TYPE_ELEMENT) return false;
        return enter(number, number == listedElement ? content : findContent(), behind);
    }

    bool toFirstAttribute() {
        if (kind != XML_ITEM_TYPE_ELEMENT) return false;
        const uint64_t element = number, end = behind;
        if (!toAttribute(element, number + 1, end)) return false;
        open(element, end);
        return true;
    }

    /// Must be inside.
    bool toNext() {
        if (kind == XML_CURSOR_TYPE_ATTRIBUTE)
            return toAttribute(levels.back().element, behind, limit);
        if (behind == limit) return false;
        return standOn(behind);
    }

    /// Must be inside and on an item; -1 where there is no next one.
    XML_ITEM_TYPE typeOfNext() const {
        if (behind == limit) return -1;
        return records.isNear(behind) ? records.kind(behind) : records->node(behind).kind;
    }

    /// Must be inside. False when the parent is the object of the list that was started in.
    bool toParent() {
        const uint64_t parent = levels.back().element, end = limit;
        levels.resize(levels.size() - 1);
        limit = levels.size() ? levels.back().end : 0;
        if (!limit && !startsAtRecord) return false;
        number = parent;
        kind = XML_ITEM_TYPE_ELEMENT;
        behind = end;
        return records.isNear(number) || seekBack(true);
    }

    XML_ITEM_TYPE type() const { return kind; }

    /// The number of the current record.
    uint64_t current() const { return number; }

    /// Null where there is none.
    Piece name() const {
        const Piece whole = records->names[records.node(number).name];
        return names ? localPart(whole) : whole;
    }

    /// Null where there is none; the outline keeps it.
    voString *ns() const {
        const bool isNamed = kind == XML_ITEM_TYPE_ELEMENT || kind == XML_CURSOR_TYPE_ATTRIBUTE;
        return names && isNamed ? names->namespaceOf(number) : nullptr;
    }

    /// Null where there is none.
    Piece value() const {
        if (kind == XML_ITEM_TYPE_ELEMENT) return {};
        const Node node = records.node(number);
        return kind == XML_CURSOR_TYPE_ATTRIBUTE ? records->valueOf(node) : records->pieceOf(node);
    }

    const uint8_t *textEnd() const { return records->source.text.end; }

    /// False where locations were not wanted.
    bool findPlace(vo::Place &place) const {
        if (!records->locator) return false;
        std::lock_guard lock(makingLock(records.operator->()));
        place = records->locator->placeOf(records->at(Outline::placeOf(records.node(number))));
        return true;
    }

  private:
    void read(const Outline *plain, const NsOutline *optionalNames) {
        records = OutlineReader(plain);
        names = optionalNames;
        listedElement = UINT64_MAX;
    }

    /// An element on the way down, and the record behind its content.
    struct Level {
        uint64_t element, end;
    };

    /// On a node that is no attribute. Gives true.
    bool standOn(uint64_t record) {
        if (!records.isNear(record)) [[unlikely]]
            return standFar(record);
        const Node node = records.node(record);
        number = record;
        kind = node.kind;
        behind = kind == XML_ITEM_TYPE_ELEMENT ? node.end : record + 1;
        return true;
    }
    [[gnu::noinline]] bool standFar(uint64_t record) {
        records.seek(record);
        return standOn(record);
    }

    void open(uint64_t element, uint64_t end) {
        levels.push({element, end});
        limit = end;
    }

    bool enter(uint64_t element, uint64_t first, uint64_t end) {
        if (first == end) return false;
        open(element, end);
        return standOn(first);
    }

    /// To the first attribute of an element at or behind `record`. Declarations and displaced
    /// attributes of the plain tree are skipped in a namespace tree.
    bool toAttribute(uint64_t element, uint64_t record, uint64_t end) {
        for (; record < end; ++record) {
            if (!records.isNear(record)) [[unlikely]]
                return toFarAttribute(element, record, end);
            if (records.kind(record) != attributeKind) break;
            if (names && !isNsAttribute(*names->numbersOf(record))) continue;
            number = record;
            kind = XML_CURSOR_TYPE_ATTRIBUTE;
            behind = record + 1;
            return true;
        }
        listedElement = element;
        content = record;
        return !records.isNear(number) && seekBack(false);
    }
    [[gnu::noinline]] bool toFarAttribute(uint64_t element, uint64_t record, uint64_t end) {
        records.seek(record);
        return toAttribute(element, record, end);
    }

    /// Where the content of the element begins that the cursor stands on.
    [[gnu::noinline]] uint64_t findContent() {
        uint64_t record = number + 1;
        for (; record < behind; ++record) {
            records.seek(record);
            if (records.kind(record) != attributeKind) break;
        }
        records.seek(number);
        return record;
    }

    [[gnu::noinline]] bool seekBack(bool result) {
        records.seek(number);
        return result;
    }

    OutlineReader records; ///< Has sought the record that the cursor stands on.
    const NsOutline *names = nullptr;

    uint64_t number = 0;    ///< The number of the current record,
    XML_ITEM_TYPE kind = 0; ///< what xmlCursorType() gives for it,
    uint64_t behind = 0;    ///< and the record behind it and its content.

    vo::InlineVector<Level, 16> levels; ///< The elements around the current record.
    uint64_t limit = 0;          ///< The record behind the content of the innermost; 0 without one.
    bool startsAtRecord = false; ///< Otherwise the outermost element is an object.

    uint64_t listedElement = UINT64_MAX; ///< The element whose attributes were read last,
    uint64_t content = 0;                ///< and where its content begins.
};

/// The outlines that were read first and last. They must be kept, since another thread may make an
/// object of any record at any time: the last because it is being read, the first so that texts of
/// it stay valid.
class KeptOutline {
  public:
    KeptOutline() = default;
    KeptOutline(const KeptOutline &other)
        : former(vo::retained<voObj>(other.former)), source(vo::retained<voObj>(other.source)) {}
    KeptOutline &operator=(const KeptOutline &) = delete;
    ~KeptOutline() = default;

    /// Whether a part of a tree is not made. Then its outline is kept from now on; `read(outline)`
    /// is called unless it was before.
    template <class Part, class Read> bool keep(const Part &part, Read read) {
        auto *pending = part.pending();
        if (!pending) return false;
        if (vo::obj(pending) == source) return true;
        auto held = part.holdPending();
        if (!held) return false;
        read(static_cast<decltype(pending)>(held));
        if (!former) former = std::move(source);
        source = vo::Ref(vo::obj(held.take()));
        return true;
    }

    /// Null before the first.
    voObj *first() const { return former ? former : source; }

  private:
    vo::Ref<voObj> former; ///< The first when it is not the last; otherwise null.
    vo::Ref<voObj> source;
};

} // namespace xml
