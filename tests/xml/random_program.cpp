#include "tests/xml/random_program.hpp"

#include "tests/xml/codec.hpp"

#include <algorithm>

namespace test {

// ---------------------------------------------------------------- steps that change nothing

voObj *Program::find(voSort *sort) {
    const auto first = size_t(below(std::ssize(held)));
    for (size_t i = 0; i < held.size(); ++i)
        if (voObj *object = held[(first + i) % held.size()]; object && vo::sortOf(object) == sort)
            return object;
    return nullptr;
}

void Program::decodeOne() {
    auto decoded =
        decode(texts[size_t(below(std::ssize(texts)))], once(2) ? XML_FLAG_DECODE_LOCATION : 0);
    ASSERT_TRUE(decoded.document) << decoded.error;
    if (makesAll) xmlDocumentMakeAll(decoded.document);
    keep(xmlDocumentObj(decoded.document.take()));
}

/// Goes some way down from an object and keeps what it has come to.
void Program::look(voObj *object) {
    Ref at(vo::retained(object));
    for (int steps = 1 + below(9); steps > 0; --steps) {
        auto [nameParts, parts, value] = partsOf(at);
        if (names == Names::objects) std::ranges::move(nameParts, std::back_inserter(parts));
        std::erase_if(parts, [](auto &part) { return !part; });
        if (parts.empty()) break;
        at = std::move(parts[once(2) ? 0 : size_t(below(std::ssize(parts)))]);
    }
    keep(at.take());
}

namespace {

template <class T, T *(*createFrom)(T *)> voObj *copyOf(voObj *source) {
    return vo::obj(createFrom(reinterpret_cast<T *>(source)));
}

} // namespace

void Program::copy(voObj *object) {
    static constexpr struct {
        voSort *(*sort)();
        voObj *(*copy)(voObj *);
    } rows[] = {
        {xmlDocumentSort, copyOf<XML_DOCUMENT, xmlDocumentCreateFrom>},
        {xmlNsDocumentSort, copyOf<XML_NS_DOCUMENT, xmlNsDocumentCreateFrom>},
        {xmlElementSort, copyOf<XML_ELEMENT, xmlElementCreateFrom>},
        {xmlNsElementSort, copyOf<XML_NS_ELEMENT, xmlNsElementCreateFrom>},
        {xmlItemsSort, copyOf<XML_ITEMS, xmlItemsCreateFrom>},
        {xmlNsItemsSort, copyOf<XML_NS_ITEMS, xmlNsItemsCreateFrom>},
        {xmlItemSort, copyOf<XML_ITEM, xmlItemCreateFrom>},
        {xmlNsItemSort, copyOf<XML_NS_ITEM, xmlNsItemCreateFrom>},
        {xmlAttributeSort, copyOf<XML_ATTRIBUTE, xmlAttributeCreateFrom>},
        {xmlAttributesSort, copyOf<XML_ATTRIBUTES, xmlAttributesCreateFrom>},
        {voVectorSort, copyOf<voVector, voVectorCreateFrom>},
    };
    for (const auto &row : rows)
        if (vo::sortOf(object) == row.sort()) return keep(row.copy(object));
    keep(vo::retained(object));
}

void Program::makeAll() {
    if (auto *el = find<XML_ELEMENT>(xmlElementSort())) return xmlElementMakeAll(el);
    if (auto *el = find<XML_NS_ELEMENT>(xmlNsElementSort())) return xmlNsElementMakeAll(el);
    if (auto *doc = find<XML_DOCUMENT>(xmlDocumentSort())) return xmlDocumentMakeAll(doc);
    if (auto *doc = find<XML_NS_DOCUMENT>(xmlNsDocumentSort())) return xmlNsDocumentMakeAll(doc);
}

void Program::convert() {
    auto *plain = find<XML_DOCUMENT>(xmlDocumentSort());
    auto *resolved = find<XML_NS_DOCUMENT>(xmlNsDocumentSort());
    if (plain && once(2))
        log += encode(plain) + '\n';
    else if (plain && names == Names::texts && once(2))
        resolve(plain);
    else if (resolved)
        unresolve(resolved);
}

void Program::resolve(XML_DOCUMENT *document) {
    auto resolved = nsDecode(document);
    log += resolved.error + ' ' + std::to_string(resolved.place.offset) + '\n';
    if (!resolved.document) return;
    if (makesAll) xmlNsDocumentMakeAll(resolved.document);
    keep(xmlNsDocumentObj(resolved.document.take()));
}

void Program::unresolve(XML_NS_DOCUMENT *document) {
    Ref made(xmlNsDocumentEncode(document));
    if (makesAll) xmlDocumentMakeAll(made);
    keep(xmlDocumentObj(made.take()));
}

// ---------------------------------------------------------------- changes

namespace {

template <class Layer> struct Changes {
    using Items = typename Layer::Items;
    using Item = typename Layer::Item;
    using Element = typename Layer::Element;
    using Attributes = typename Layer::Attributes;
    using Attribute = typename Layer::Attribute;

    static void document(Program &program, typename Layer::Document **doc) {
        auto *list = program.find<Items>(Layer::itemsSort());
        if (list && program.once(3)) return Layer::setDocumentItems(doc, list);
        if (program.once(5))
            return Layer::setVersion(doc, str("1." + std::to_string(program.below(9))));
        Ref items(Layer::documentItems(*doc));
        if (program.once(2)) Layer::setDocumentItems(doc, Ref(Layer::createItems()));
        Changes::items(program, items.edit());
        Layer::setDocumentItems(doc, items);
    }

    static void items(Program &program, Items **list) {
        const int64_t length = Layer::itemsLength(*list);
        if (length && program.below(3)) return itemAt(program, list, program.below(length));
        if (length && program.once(3)) return exchange(program, list);
        const int64_t index = program.below(length + 1);
        auto *others = program.find<Items>(Layer::itemsSort());
        auto *el = program.find<Element>(Layer::elementSort());
        auto *text = program.find<XML_TEXT>(xmlTextSort());
        auto *vector = program.find<voVector>(voVectorSort());
        switch (program.below(6)) {
        case 0:
            if (others) return Layer::insertItems(list, index, others);
            break;
        case 1:
            if (el) return Layer::insertItemElement(list, index, el);
            break;
        case 2:
            if (text) return Layer::appendItemText(list, text);
            break;
        case 3:
            if (vector && voVectorContainsOnly(vector, Layer::itemSort()))
                return Layer::setItemsVector(list, vector);
            break;
        case 4:
            if (program.once(3)) return Layer::clearItems(list);
        }
        Layer::appendItemComment(list, comment(program.word()));
    }

    /// Puts items of another list, which may be of another document, among those of this one.
    static void exchange(Program &program, Items **list) {
        Ref others(vo::retained(program.find<Items>(Layer::itemsSort())));
        if (!others) return;
        for (int64_t i = 0; i < Layer::itemsLength(others) && i < Layer::itemsLength(*list); ++i)
            if (program.once(2)) Layer::setItemAt(list, i, Ref(Layer::itemAt(others, i)));
    }

    static void itemAt(Program &program, Items **list, int64_t index) {
        auto *item = program.find<Item>(Layer::itemSort());
        if (item && program.once(3)) return Layer::setItemAt(list, index, item);
        Ref el(Layer::elementAt(*list, index));
        const bool takesOut = !el || program.once(2); // then nobody else may hold the element
        if (takesOut) Layer::delItemAt(list, index);
        if (!el) return;
        Changes::element(program, el.edit());
        if (takesOut)
            Layer::insertItemElement(list, index, el);
        else
            Layer::setElementInItems(list, index, el);
    }

    static void element(Program &program, Element **el) {
        auto *list = program.find<Items>(Layer::itemsSort());
        auto *attrs = program.find<Attributes>(Layer::attributesSort());
        auto *other = program.find<Element>(Layer::elementSort());
        const int64_t length = Layer::elementLength(*el);
        switch (program.below(9)) {
        case 0:
            return Layer::renameElement(el, program.word());
        case 1:
            return Layer::delElementLocation(el);
        case 2:
            return Layer::setElementAttribute(el, Layer::attribute(program.word(), program.word()));
        case 3:
            if (attrs) Layer::setElementAttributes(el, attrs);
            return;
        case 4:
            if (list) Layer::setElementItems(el, list);
            return;
        case 5:
            if (other) Layer::insertElement(el, program.below(length + 1), other);
            return;
        case 6:
            if (length) Layer::delElementItemAt(el, program.below(length));
            return;
        default:
            content(program, el);
        }
    }

    static void content(Program &program, Element **el) {
        Ref items(Layer::elementItems(*el));
        if (program.once(2)) Layer::setElementItems(el, Ref(Layer::createItems()));
        Changes::items(program, items.edit());
        Layer::setElementItems(el, items);
    }

    static void item(Program &program, Item **item) {
        auto *el = program.find<Element>(Layer::elementSort());
        if (el && program.once(2)) return Layer::setItemElement(item, el);
        Layer::setItemComment(item, comment(program.word()));
    }

    static void attributes(Program &program, Attributes **attrs) {
        const int64_t length = Layer::attributesLength(*attrs);
        auto *attr = program.find<Attribute>(Layer::attributeSort());
        if (attr && program.once(2))
            Layer::insertAttribute(attrs, program.below(length + 1), attr);
        else if (length)
            Layer::delAttributeAt(attrs, program.below(length));
    }

    static void attribute(Program &program, Attribute **attr) {
        auto *text = program.find<XML_TEXT>(xmlTextSort());
        if (text && program.once(2)) return Layer::setText(attr, text);
        Layer::setTextValue(attr, str(program.word()));
    }
};

void changeText(Program &program, XML_TEXT **text) { xmlTextSetValue(text, str(program.word())); }
void changeComment(Program &program, XML_COMMENT **comment) {
    xmlCommentSetValue(comment, str(program.word()));
}
void changeString(Program &, voString **string) { voStringAppendChar(string, '!'); }
void changeVector(Program &program, voVector **vector) {
    if (const int64_t length = voVectorLength(*vector); length)
        voVectorDelAt(vector, program.below(length));
}

template <class T, void (*change)(Program &, T **)> void apply(Program &program, voObj **object) {
    change(program, reinterpret_cast<T **>(object));
}

} // namespace

void Program::change(voObj **object) {
    static constexpr struct {
        voSort *(*sort)();
        void (*change)(Program &, voObj **);
    } rows[] = {
#define LAYER(Layer)                                                                               \
    {Layer::documentSort, apply<Layer::Document, Changes<Layer>::document>},                       \
        {Layer::itemsSort, apply<Layer::Items, Changes<Layer>::items>},                            \
        {Layer::itemSort, apply<Layer::Item, Changes<Layer>::item>},                               \
        {Layer::elementSort, apply<Layer::Element, Changes<Layer>::element>},                      \
        {Layer::attributesSort, apply<Layer::Attributes, Changes<Layer>::attributes>},             \
        {Layer::attributeSort, apply<Layer::Attribute, Changes<Layer>::attribute>}
        LAYER(Plain),
        LAYER(Namespaced),
#undef LAYER
        {xmlTextSort, apply<XML_TEXT, changeText>},
        {xmlCommentSort, apply<XML_COMMENT, changeComment>},
        {voStringSort, apply<voString, changeString>},
        {voVectorSort, apply<voVector, changeVector>},
    };
    for (const auto &row : rows)
        if (vo::sortOf(*object) == row.sort()) return row.change(*this, object);
}

void Program::step() {
    Ref<voObj> &slot = held[size_t(below(std::ssize(held)))];
    const int kind = below(16);
    if (!slot || kind == 0) return decodeOne();
    if (kind < 5) return look(slot);
    if (kind < 9) return change(slot.edit());
    if (kind < 13) return convert();
    if (kind == 13) return copy(slot);
    if (kind == 14 && once(2)) return makeAll();
    slot = {};
}

} // namespace test
