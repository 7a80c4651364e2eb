#include "source/xml/outline/xml_outline_objects.hpp"

#include "source/vo/vo_hash.hpp"
#include "source/vo/vo_utf.hpp"
#include "source/xml/base/xml_skip.hpp"

#include <algorithm>

namespace xml {
namespace {

using ItemValue = decltype(XML_ITEM::value);
using ItemsVector = decltype(XML_ITEMS::itemsVector);

} // namespace

ObjectMaker &makerOf(Outline *outline) {
    if (!outline->maker) outline->maker = vo::make<ObjectMaker>(*outline);
    return *outline->maker;
}

XML_ITEMS *createRootItems(vo::Ref<Outline> outline) {
    if (outline->count == 0) return xmlItemsCreate(); // Lists that are not made have some items.
    auto *list = vo::create<XML_ITEMS>(xmlItemsSort());
    list->element = Outline::root;
    list->itemsVector = ItemsVector(outline.take());
    return list;
}

ObjectMaker::ObjectMaker(Outline &decoded)
    : outline(decoded), place(vo::Chunk::smallest),
      names(decoded.names.size()), ascii{decoded.source.text.begin, decoded.source.text.begin} {
    auto none = create<XML_ATTRIBUTES>(sorts.attributes);
    noAttributes = Stock(none.with(place.createArray<voVector>(sorts.vector, 0)));
    noItems = Stock(list(0));
}

// ---------------------------------------------------------------- making on demand

voVector *ObjectMaker::items(uint64_t element, bool whole) {
    const uint64_t end = outline.behindContent(element);
    uint64_t number = outline.firstIn(element);
    uint64_t allowed = ahead.allowance(number);
    uint64_t expected = end;
    int64_t left = 0;
    while (number < end) {
        const Node node = outline.node(number);
        const uint64_t behind = node.kind == XML_ITEM_TYPE_ELEMENT ? node.end : number + 1;
        if (whole || behind - number <= allowed) {
            allowed -= behind - number;
            addItems(number, behind);
        } else if (XML_ITEM *shared = blankItem(node)) {
            children.push_back(shared);
        } else {
            allowed = 0; // Behind the first pending item all but white space is pending.
            if (left++ == 0) expected = number;
            children.push_back(pendingItem(itemTag(node.kind, number, behind == end)));
        }
        number = behind;
    }
    vo::retainTimes(&outline, left);
    ahead.expect(expected);
    return takeChildren(0);
}

voObj *ObjectMaker::node(uint64_t number, bool whole) {
    const Node node = outline.node(number);
    const uint64_t allowed = ahead.allowance(number);
    if (node.kind != XML_ITEM_TYPE_ELEMENT) {
        ahead.expect(number + 1);
        return vo::obj(characterData(node));
    }
    const uint64_t content = outline.behindAttributes(number);
    XML_ELEMENT *made = element(node, number, content);
    if (whole || node.end - number <= allowed) {
        addItems(content, node.end);
        made->items = list(0);
        ahead.expect(node.end);
    } else {
        made->items = content == node.end ? noItems.take() : pendingList(number);
        ahead.expect(content);
    }
    return vo::obj(made);
}

voString *ObjectMaker::name(uint64_t number) {
    Stock<voString> &known = names[number];
    if (!known) known = Stock(string(outline.names[number]));
    return known.take();
}

// ---------------------------------------------------------------- nodes

XML_ITEM *ObjectMaker::leafItem(const Node &node) {
    if (XML_ITEM *shared = blankItem(node)) return shared;
    return createLeafItem(node);
}

XML_ITEM *ObjectMaker::createLeafItem(const Node &node) {
    auto item = create<XML_ITEM>(sorts.item);
    return item.with(itemTag(node.kind), ItemValue(vo::obj(characterData(node))));
}

/// An item whose node is not made. It will hold a reference to the outline, which the caller adds.
XML_ITEM *ObjectMaker::pendingItem(uint64_t tag) {
    return create<XML_ITEM>(sorts.item).with(tag, ItemValue(&outline));
}

/// The element without its items; `content` is the first record of those.
XML_ELEMENT *ObjectMaker::element(const Node &node, uint64_t number, uint64_t content) {
    auto made = create<XML_ELEMENT>(sorts.element);
    return made.with(name(node.name), attributes(number + 1, content), nullptr, location(node));
}

/// Puts items with their nodes and all below those into `children`, for the records from `number`
/// to `end`. Elements inside wait on a stack, so that depth costs memory and never the call stack.
void ObjectMaker::addItems(uint64_t number, uint64_t end) {
    for (;;) {
        for (; !open.empty() && open.back().end == number; open.pop_back())
            open.back().element->items = list(open.back().firstChild);
        if (number == end) return;
        const Node node = outline.node(number);
        if (node.kind != XML_ITEM_TYPE_ELEMENT) {
            children.push_back(leafItem(node));
            ++number;
            continue;
        }
        const uint64_t content = outline.behindAttributes(number);
        auto item = create<XML_ITEM>(sorts.item);
        XML_ELEMENT *inner = element(node, number, content);
        children.push_back(item.with(itemTag(node.kind), ItemValue(vo::obj(inner))));
        open.push_back({inner, node.end, children.size()});
        number = content;
    }
}

CharacterData *ObjectMaker::characterData(const Node &node) {
    auto made = create<CharacterData>(sorts.nodes[node.kind]);
    return made.with(string(outline.pieceOf(node)), location(node));
}

/// The shared item of a text that is nothing but white space; null for other nodes. More than half
/// of all texts are white space between tags, in few different forms: equal ones share an item.
/// Texts with a location are all different.
XML_ITEM *ObjectMaker::blankItem(const Node &node) {
    if (node.kind != XML_ITEM_TYPE_TEXT || outline.locator) return nullptr;
    const Piece piece = outline.pieceOf(node);
    if (!isSpace(*piece.begin)) return nullptr;
    const std::string_view bytes = piece.bytes();
    Blank *&last = lastBlanks[bytes.size() % lastBlanks.size()];
    if (last && last->bytes == bytes) return last->item.take();
    if (skipS(piece.begin, piece.end) != piece.end) return nullptr;
    const uint64_t hash = vo::hashBytes(bytes.data(), bytes.size());
    last = blanks.find(hash, [&](const Blank &blank) { return blank.bytes == bytes; });
    if (!last) {
        last = &blanks.add(hash);
        last->bytes = bytes;
        last->item = Stock(createLeafItem(node));
    }
    return last->item.take();
}

XML_ATTRIBUTES *ObjectMaker::attributes(uint64_t begin, uint64_t end) {
    if (begin == end) return noAttributes.take();
    auto list = create<XML_ATTRIBUTES>(sorts.attributes);
    auto *vector = place.createArray<voVector>(sorts.vector, int64_t(end - begin));
    for (uint64_t number = begin; number < end; ++number)
        vector->items()[number - begin] = vo::obj(attribute(outline.node(number)));
    return list.with(vector);
}

XML_ATTRIBUTE *ObjectMaker::attribute(const Node &node) {
    auto attr = create<XML_ATTRIBUTE>(sorts.attribute);
    auto text = create<XML_TEXT>(sorts.text);
    return attr.with(name(node.name), text.with(string(outline.valueOf(node)), nullptr),
                     location(node));
}

// ---------------------------------------------------------------- lists

XML_ITEMS *ObjectMaker::list(size_t firstChild) {
    if (firstChild == children.size() && noItems) return noItems.take();
    auto list = create<XML_ITEMS>(sorts.items);
    return list.with(ItemsVector(takeChildren(firstChild)));
}

/// A list without its vector. It holds the outline.
XML_ITEMS *ObjectMaker::pendingList(uint64_t element) {
    auto *list = create<XML_ITEMS>(sorts.items).with(ItemsVector(vo::retained(&outline)));
    list->element = element;
    return list;
}

voVector *ObjectMaker::takeChildren(size_t firstChild) {
    const auto length = int64_t(children.size() - firstChild);
    auto *vector = place.createArray<voVector>(sorts.vector, length);
    std::transform(children.begin() + ptrdiff_t(firstChild), children.end(), vector->items(),
                   vo::obj<XML_ITEM>);
    children.resize(firstChild);
    return vector;
}

// ---------------------------------------------------------------- texts

/// Looks a bit further than the piece, since the text behind it is mostly asked for next.
bool ObjectMaker::lookForAscii(Piece piece) {
    constexpr ptrdiff_t further = 4096;
    const uint8_t *textEnd = outline.source.text.end;
    const uint8_t *end = textEnd - piece.end > further ? piece.end + further : textEnd;
    ascii = {piece.begin, vo::skipAscii(piece.begin, end)};
    return piece.end <= ascii.end;
}

voString *ObjectMaker::string(Piece piece) {
    const bool plain = isAscii(piece);
    const int64_t length = plain ? piece.size() : vo::countUtf8(piece.begin, piece.end);
    auto *string = place.createArray<voString>(sorts.string, length);
    const bool inBlocks =
        plain && vo::ChunkPlacer::isPlaced(int64_t{sizeof(voString)} + length * 4);
    if (!inBlocks || !widenInBlocks(string->items(), piece))
        vo::widenUtf8(string->items(), piece.begin, piece.end);
    return string;
}

/// Widens ASCII 16 characters at a time, which may write past the end of the string, into the slack
/// of its chunk: most strings are so short that stopping exactly would take longer. Does nothing
/// and gives false near the end of the text.
bool ObjectMaker::widenInBlocks([[maybe_unused]] uint32_t *out,
                                [[maybe_unused]] Piece piece) const {
#if defined(__SSE2__) && VO_CHUNKS
    if (outline.source.text.end - piece.end < 16) return false;
    for (const uint8_t *at = piece.begin; at < piece.end; at += 16, out += 16)
        vo::widen16(out, vo::load16(at));
    return true;
#else
    return false;
#endif
}

} // namespace xml

voVector *XML_ITEMS::make(bool whole) {
    return itemsVector.get(
        [&](xml::Outline *outline) { return xml::makerOf(outline).items(element, whole); });
}

voObj *XML_ITEM::make(bool whole) {
    return value.get(
        [&](xml::Outline *outline) { return xml::makerOf(outline).node(number(), whole); });
}
