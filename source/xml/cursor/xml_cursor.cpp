#include "source/xml/cursor/xml_cursor.hpp"

#include "source/xml/base/xml_module.hpp"
#include "source/xml/cursor/xml_cursor.hpp"
#include "source/xml/cursor/xml_cursor_layer.hpp"
#include "source/xml/cursor/xml_cursor_text.hpp"
#include "source/xml/cursor/xml_record_cursor.hpp"

#include <new>

namespace xml {
namespace {

/// A place in a tree of either layer.
///
/// A node is an object or, as long as it is not made, a record of an outline. Below a record there
/// are only records of the same outline, so the way down from the origin, which may be a record
/// itself, leads through lists of objects first, and then through the records of one outline. The
/// origin keeps those objects alive. The outline is kept by the cursor itself, since another thread
/// may make objects of its records at any time, whereupon the tree may release it.
class Cursor {
  public:
    template <class Layer> Cursor(Layer, voObj *start, XML_ITEM_TYPE startType)
        : object(start), kind(startType), namespaced(std::is_same_v<Layer, NsLayer>),
          originType(startType), origin(vo::retained(start)) {}

    /// The copy converts texts anew; it shares no memory with this one.
    Cursor(const Cursor &other)
        : object(other.object), kind(other.kind), records(other.records), lists(other.lists),
          namespaced(other.namespaced), originType(other.originType),
          origin(vo::retained<voObj>(other.origin)), outline(other.outline) {}

    /// What makes a cursor for the node on which another one stands.
    struct Here {
        const Cursor &other;
    };
    explicit Cursor(Here here)
        : object(here.other.object), kind(here.other.kind), records(here.other.records.alone()),
          namespaced(here.other.namespaced), originType(here.other.type()),
          origin(vo::retained<voObj>(object)), outline(here.other.outline) {}

    Cursor &operator=(const Cursor &) = delete;
    ~Cursor() = default;

    // ---------------------------------------------------------------- moving

    bool toFirstChild() { return object ? toFirstChildOfObject() : records.toFirstChild(); }

    bool toFirstAttribute() {
        return object ? toFirstAttributeOfObject() : records.toFirstAttribute();
    }

    bool toNext() { return records.isInside() ? records.toNext() : toNextInList(); }

    bool toParent() {
        if (!records.isInside()) return toParentOfList();
        if (!records.toParent()) standOnParent();
        return true;
    }

    // ---------------------------------------------------------------- reading

    XML_ITEM_TYPE typeOfNext() const {
        return records.isInside() ? records.typeOfNext() : typeOfNextInList();
    }

    XML_ITEM_TYPE type() const { return object ? kind : records.type(); }

    XML_UTF8 name() { return object ? nameOfObject() : utf8Of(records.name()); }

    XML_UTF8 ns() {
        voString *ns = object ? nsOfObject() : records.ns();
        return ns ? nsText.of(ns) : noUtf8;
    }

    XML_UTF8 value() { return object ? valueOfObject() : utf8Of(records.value()); }

    XML_UTF8 plainValue() {
        if (object) return plainValueOfObject();
        const Piece stored = records.value();
        if (!isEscaped(records.type()) || !hasReference(stored, records.textEnd()))
            return utf8Of(stored);
        return plainText.of(stored);
    }

    /// The text of the outline that is kept as long as the cursor.
    XML_UTF8 keptText();

    /// The node must be a record or the document of one.
    RecordPlace record() {
        VO_ASSERT(!object || kind == XML_CURSOR_TYPE_DOCUMENT);
        return {keptOutline(), object ? Outline::root : records.current()};
    }

    bool wasExact() const { return nameText.isExact() && nsText.isExact() && valueText.isExact(); }

    /// False where no location was recorded.
    bool findPlace(vo::Place &place) const {
        if (!object) return records.findPlace(place);
        voParserLocation *recorded = locationOfObject();
        if (recorded) place = vo::placeOf(recorded);
        return recorded;
    }

  private:
    /// A list of objects on the way, items or attributes, and which of them leads on.
    struct List {
        voVector *vector;
        int64_t index;

        voObj *object() const { return vector->items()[index]; }
    };

    static bool isEscaped(XML_ITEM_TYPE type) {
        return type == XML_ITEM_TYPE_TEXT || type == XML_CURSOR_TYPE_ATTRIBUTE;
    }

    template <class Use> auto inLayer(Use use) const {
        return namespaced ? use(NsLayer()) : use(PlainLayer());
    }
    template <class Layer> typename Layer::Document *document(Layer) const {
        return reinterpret_cast<typename Layer::Document *>(object);
    }
    template <class Layer> typename Layer::Element *element(Layer) const {
        return reinterpret_cast<typename Layer::Element *>(object);
    }
    template <class Layer> typename Layer::Attribute *attribute(Layer) const {
        return reinterpret_cast<typename Layer::Attribute *>(object);
    }

    /// Whether the object is a document or an element, which have a list of items.
    bool hasContent() const {
        return kind == XML_ITEM_TYPE_ELEMENT || kind == XML_CURSOR_TYPE_DOCUMENT;
    }
    auto *itemsOf(auto layer) const {
        return kind == XML_CURSOR_TYPE_DOCUMENT ? layer.items(document(layer))
                                                : layer.items(element(layer));
    }

    [[gnu::noinline]] bool toFirstChildOfObject();
    [[gnu::noinline]] bool toFirstAttributeOfObject();
    bool enter(voVector *vector, XML_ITEM_TYPE type);
    [[gnu::noinline]] bool toNextInList();
    [[gnu::noinline]] XML_ITEM_TYPE typeOfNextInList() const;
    [[gnu::noinline]] bool toParentOfList();
    void standInList();
    [[gnu::noinline]] void standOnParent();

    template <class Part> bool hold(const Part &part);
    const Outline *keptOutline();

    [[gnu::noinline]] XML_UTF8 nameOfObject();
    [[gnu::noinline]] voString *nsOfObject() const;
    [[gnu::noinline]] XML_UTF8 valueOfObject();
    [[gnu::noinline]] XML_UTF8 plainValueOfObject();
    [[gnu::noinline]] voParserLocation *locationOfObject() const;

    voObj *object;        ///< What the cursor stands on, or null: then it is a record.
    XML_ITEM_TYPE kind;   ///< Of the object.
    RecordCursor records; ///< The part of the way that leads through records.
    vo::Vec<List> lists;  ///< The part before it, which leads through objects.

    const bool namespaced;
    const XML_ITEM_TYPE originType;
    const vo::Ref<voObj> origin; ///< Null for a record, which the outline keeps.
    KeptOutline outline;

    StringText nameText, nsText, valueText;
    PlainText plainText;
};

// ---------------------------------------------------------------- objects

bool Cursor::toFirstChildOfObject() {
    if (!hasContent()) return false;
    return inLayer([&](auto layer) {
        const auto *list = itemsOf(layer);
        if (!hold(list->itemsVector)) return enter(list->itemsVector.made(), XML_ITEM_TYPE_ELEMENT);
        if (!records.startIn(list->element)) return false;
        object = nullptr;
        return true;
    });
}

/// The outline whose text is kept, or null.
const Outline *Cursor::keptOutline() {
    if (!outline.first() && hasContent())
        inLayer([&](auto layer) { hold(itemsOf(layer)->itemsVector); });
    voObj *kept = outline.first();
    if (!kept) return nullptr;
    return namespaced ? reinterpret_cast<NsOutline *>(kept)->outline
                      : reinterpret_cast<Outline *>(kept);
}

XML_UTF8 Cursor::keptText() {
    const Outline *kept = keptOutline();
    return kept ? utf8Of({kept->source.text.begin, kept->source.text.end}) : noUtf8;
}

bool Cursor::toFirstAttributeOfObject() {
    if (kind != XML_ITEM_TYPE_ELEMENT) return false;
    return inLayer([&](auto layer) {
        return enter(element(layer)->attributes->vector, XML_CURSOR_TYPE_ATTRIBUTE);
    });
}

/// To the first of a list of attributes, if `type` is theirs, or else of items.
bool Cursor::enter(voVector *vector, XML_ITEM_TYPE type) {
    if (vector->length == 0) return false;
    lists.push_back({vector, 0});
    kind = type;
    standInList();
    return true;
}

bool Cursor::toNextInList() {
    if (lists.empty() || lists.back().index + 1 == lists.back().vector->length) return false;
    ++lists.back().index;
    standInList();
    return true;
}

XML_ITEM_TYPE Cursor::typeOfNextInList() const {
    if (lists.empty() || lists.back().index + 1 == lists.back().vector->length) return -1;
    voObj *next = lists.back().vector->items()[lists.back().index + 1];
    return inLayer([&](auto layer) {
        return reinterpret_cast<const typename decltype(layer)::Item *>(next)->type();
    });
}

bool Cursor::toParentOfList() {
    if (lists.empty()) return false;
    lists.pop_back();
    standOnParent();
    return true;
}

/// Stands on the current entry of the last list: an attribute if `kind` says so, else an item.
void Cursor::standInList() {
    object = lists.back().object();
    if (kind == XML_CURSOR_TYPE_ATTRIBUTE) return;
    inLayer([&](auto layer) {
        const auto *item = reinterpret_cast<typename decltype(layer)::Item *>(object);
        kind = item->type();
        object = hold(item->value) ? nullptr : item->value.made();
        if (!object) records.startAt(item->number());
    });
}

/// Stands on the element of the last list that is left, which is made, or on the origin.
void Cursor::standOnParent() {
    kind = lists.empty() ? originType : XML_ITEM_TYPE{XML_ITEM_TYPE_ELEMENT};
    object = lists.empty() ? origin : inLayer([&](auto layer) {
        using Item = typename decltype(layer)::Item;
        return reinterpret_cast<Item *>(lists.back().object())->value.made();
    });
}

/// Whether a part of the tree is not made; then `source` and `records` are set to its outline.
template <class Part> bool Cursor::hold(const Part &part) {
    return outline.keep(part, [this](auto *held) {
        records.read(held);
        nsText.forget(); // It may be of a string that only the former outline kept.
    });
}

XML_UTF8 Cursor::nameOfObject() {
    const bool isElement = kind == XML_ITEM_TYPE_ELEMENT;
    if (!isElement && kind != XML_CURSOR_TYPE_ATTRIBUTE) return noUtf8;
    return nameText.of(inLayer([&](auto layer) {
        return isElement ? layer.name(element(layer)) : layer.name(attribute(layer));
    }));
}

voString *Cursor::nsOfObject() const {
    if (!namespaced) return nullptr;
    if (kind == XML_ITEM_TYPE_ELEMENT) return element(NsLayer())->ns;
    return kind == XML_CURSOR_TYPE_ATTRIBUTE ? attribute(NsLayer())->ns : nullptr;
}

XML_UTF8 Cursor::valueOfObject() {
    if (kind == XML_CURSOR_TYPE_ATTRIBUTE)
        return valueText.of(inLayer([&](auto layer) { return attribute(layer)->text->value; }));
    if (kind == XML_ITEM_TYPE_ELEMENT || kind == XML_CURSOR_TYPE_DOCUMENT) return noUtf8;
    return valueText.of(reinterpret_cast<CharacterData *>(object)->value);
}

XML_UTF8 Cursor::plainValueOfObject() {
    const XML_UTF8 stored = valueOfObject();
    const auto *at = reinterpret_cast<const uint8_t *>(stored.bytes);
    const Piece piece{at, at + stored.length};
    return isEscaped(kind) && hasReference(piece, piece.end) ? plainText.of(piece) : stored;
}

voParserLocation *Cursor::locationOfObject() const {
    return inLayer([&](auto layer) {
        switch (kind) {
        case XML_CURSOR_TYPE_DOCUMENT:
            return document(layer)->location;
        case XML_CURSOR_TYPE_ATTRIBUTE:
            return attribute(layer)->location;
        case XML_ITEM_TYPE_ELEMENT:
            return element(layer)->location;
        default:
            return reinterpret_cast<CharacterData *>(object)->location;
        }
    });
}

} // namespace
} // namespace xml

// ---------------------------------------------------------------- the interface

struct XML_CURSOR {
    voObj base;
    xml::Cursor at;
};

extern "C" {
void xml___CursorFreeFunc(voObj *obj);
extern voSort xml___sort_XML_CURSOR;
}

void xml___CursorFreeFunc(voObj *obj) { xmlCursorFrom(obj)->at.~Cursor(); }

constinit voSort xml___sort_XML_CURSOR = {
    {nullptr, 1}, &xml___module, "XML_CURSOR", xml___CursorFreeFunc};
VO_OPERATIONS(xmlCursor, XML_CURSOR, xml___sort_XML_CURSOR);

namespace {

template <class... Arguments> XML_CURSOR *create(Arguments &&...arguments) {
    auto *cursor =
        reinterpret_cast<XML_CURSOR *>(vo___ObjCreate(sizeof(XML_CURSOR), xmlCursorSort()));
    new (&cursor->at) xml::Cursor(std::forward<Arguments>(arguments)...);
    return cursor;
}

} // namespace

XML_ITEM_TYPE xml::typeOfNext(XML_CURSOR *cursor) { return cursor->at.typeOfNext(); }

XML_CURSOR *xmlCursorCreateFrom(XML_CURSOR *source) { return create(VO_READ(source)->at); }

XML_CURSOR *xmlCursorCreateHere(XML_CURSOR *source) {
    return create(xml::Cursor::Here{VO_READ(source)->at});
}

XML_CURSOR *xmlCursorCreate(XML_DOCUMENT *doc) {
    VO_ASSERT(doc);
    return create(xml::PlainLayer(), vo::obj(doc), XML_CURSOR_TYPE_DOCUMENT);
}

XML_CURSOR *xmlCursorCreateElement(XML_ELEMENT *el) {
    VO_ASSERT(el);
    return create(xml::PlainLayer(), vo::obj(el), XML_ITEM_TYPE_ELEMENT);
}

XML_CURSOR *xmlCursorCreateNs(XML_NS_DOCUMENT *doc) {
    VO_ASSERT(doc);
    return create(xml::NsLayer(), vo::obj(doc), XML_CURSOR_TYPE_DOCUMENT);
}

XML_CURSOR *xmlCursorCreateNsElement(XML_NS_ELEMENT *el) {
    VO_ASSERT(el);
    return create(xml::NsLayer(), vo::obj(el), XML_ITEM_TYPE_ELEMENT);
}

int xmlCursorFirstChild(XML_CURSOR *cursor) { return VO_READ(cursor)->at.toFirstChild(); }
int xmlCursorFirstAttribute(XML_CURSOR *cursor) { return VO_READ(cursor)->at.toFirstAttribute(); }
int xmlCursorNext(XML_CURSOR *cursor) { return VO_READ(cursor)->at.toNext(); }
int xmlCursorParent(XML_CURSOR *cursor) { return VO_READ(cursor)->at.toParent(); }

XML_ITEM_TYPE xmlCursorType(XML_CURSOR *cursor) { return VO_READ(cursor)->at.type(); }
XML_UTF8 xmlCursorName(XML_CURSOR *cursor) { return VO_READ(cursor)->at.name(); }
XML_UTF8 xmlCursorNamespace(XML_CURSOR *cursor) { return VO_READ(cursor)->at.ns(); }
XML_UTF8 xmlCursorValue(XML_CURSOR *cursor) { return VO_READ(cursor)->at.value(); }
XML_UTF8 xmlCursorValueTryUnescape(XML_CURSOR *cursor) { return VO_READ(cursor)->at.plainValue(); }
XML_UTF8 xmlCursorKeptText(XML_CURSOR *cursor) { return VO_READ(cursor)->at.keptText(); }

int xmlCursorLocation(XML_CURSOR *cursor, int64_t *optionalOffset, int64_t *optionalLine,
                      int64_t *optionalColumn) {
    vo::Place place;
    if (!VO_READ(cursor)->at.findPlace(place)) return 0;
    if (optionalOffset) *optionalOffset = place.offset;
    if (optionalLine) *optionalLine = place.line;
    if (optionalColumn) *optionalColumn = place.column;
    return 1;
}

xml::RecordPlace xml::recordOf(XML_CURSOR *cursor) { return VO_READ(cursor)->at.record(); }

bool xml::wasExact(XML_CURSOR *cursor) { return cursor->at.wasExact(); }
