#include "source/xml/ns/xml_ns_objects.hpp"

namespace xml {
namespace {

XML_ITEM *itemIn(voVector *items, int64_t index) {
    return reinterpret_cast<XML_ITEM *>(items->items()[index]);
}

XML_ELEMENT *elementIn(XML_ITEM *item) { return reinterpret_cast<XML_ELEMENT *>(nodeOf(item)); }

void makeAllIn(XML_ITEM *item) {
    if (!item->value.made()) (void)item->make(true);
    if (item->type() == XML_ITEM_TYPE_ELEMENT)
        makeAll<XML_ITEM, XML_ELEMENT>(elementIn(item)->items);
}

} // namespace

NsObjectMaker &makerOf(NsShared *shared) {
    if (!shared->maker) shared->maker = vo::make<NsObjectMaker>(*shared);
    return *shared->maker;
}

voVector *NsObjectMaker::items(NsOutline &part, voVector *plain, uint64_t number, int64_t whole) {
    voVector *made = place.vector(plain->length);
    for (int64_t i = 0; i < plain->length; ++i, number = part.outline->behind(number)) {
        XML_ITEM *from = itemIn(plain, i);
        if (i >= whole)
            place.push(made, pendingItem(from, number, vo::retained(&part)));
        else if (from->type() == XML_ITEM_TYPE_ELEMENT)
            place.push(made,
                       item(from->type(), vo::obj(element(part, elementIn(from), number, true))));
        else
            place.push(made, item(from->type(), vo::retained(nodeOf(from))));
    }
    return made;
}

XML_NS_ELEMENT *NsObjectMaker::element(NsOutline &part, XML_ELEMENT *plain, uint64_t number,
                                       bool whole) {
    XML_NS_ELEMENT *made = NsFactory::element(plain, part.numbersOf(number));
    const uint64_t content = part.outline->behindAttributes(number);
    if (content == part.outline->node(number).end)
        made->items = list(0);
    else if (whole)
        fill(part, made, plain, content);
    else
        made->items = createPendingItems(plain->items, number, vo::retained(&part));
    return made;
}

/// Makes all that the element holds; `number` is the first record of its content. Elements inside
/// wait on a stack, so that depth costs memory and never the call stack.
void NsObjectMaker::fill(NsOutline &part, XML_NS_ELEMENT *element, XML_ELEMENT *plain,
                         uint64_t number) {
    const size_t outer = opened.size();
    open(element, plain);
    while (opened.size() > outer) {
        const OpenList list = opened.back();
        if (list.atEnd()) {
            opened.pop_back();
            continue;
        }
        auto *from = reinterpret_cast<XML_ITEM *>(list.next());
        if (from->type() != XML_ITEM_TYPE_ELEMENT) {
            place.push(list.to, item(from->type(), vo::retained(nodeOf(from))));
            ++number;
            continue;
        }
        XML_NS_ELEMENT *inner = NsFactory::element(elementIn(from), part.numbersOf(number));
        place.push(list.to, item(from->type(), vo::obj(inner)));
        number = part.outline->behindAttributes(number);
        open(inner, elementIn(from));
    }
}

void NsObjectMaker::open(XML_NS_ELEMENT *element, XML_ELEMENT *plain) {
    voVector *from = vectorOf(plain->items);
    element->items = list(from->length);
    if (from->length) opened.push_back({from, vectorOf(element->items), 0});
}

} // namespace xml

using vo::Ref;
using vo::retained;

voVector *XML_NS_ITEMS::make(bool whole) {
    Ref<xml::NsOutline> outline;
    Ref<XML_ITEMS> from;
    uint64_t allowed = 0;
    uint64_t number = 0;
    itemsVector.ifPending([&](xml::NsOutline *pending) {
        outline = Ref(retained(pending));
        from = Ref(retained(plain));
        number = pending->outline->firstIn(element);
        allowed = whole ? UINT64_MAX : xml::LockedNsMaker(pending->shared)->ahead.allowance(number);
    });
    if (!outline) return itemsVector.made();
    // The plain objects are made first, before the lock of this outline is taken.
    voVector *plainItems = xml::vectorOf<XML_ITEMS>(from);
    int64_t made = 0;
    uint64_t next = number;
    for (uint64_t size; made < plainItems->length; ++made, allowed -= size, next += size) {
        size = outline->outline->behind(next) - next;
        if (size > allowed) break;
        xml::makeAllIn(xml::itemIn(plainItems, made));
    }
    Ref<XML_ITEMS> done;
    return itemsVector.get([&](xml::NsOutline *pending) {
        done = Ref(std::exchange(plain, nullptr));
        xml::LockedNsMaker maker(pending->shared);
        maker->ahead.expect(next);
        return maker->items(*pending, plainItems, number, made);
    });
}

voObj *XML_NS_ITEM::make(bool whole) {
    Ref<xml::NsOutline> outline;
    Ref<XML_ITEM> from;
    bool wholly = whole;
    value.ifPending([&](xml::NsOutline *pending) {
        outline = Ref(retained(pending));
        from = Ref(retained(plain));
        const uint64_t size = pending->outline->behind(number()) - number();
        wholly |= size <= xml::LockedNsMaker(pending->shared)->ahead.allowance(number());
    });
    if (!outline) return value.made();
    // The plain objects are made first, before the lock of this outline is taken.
    if (wholly) xml::makeAllIn(from);
    voObj *node = xml::nodeOf<XML_ITEM>(from);
    Ref<XML_ITEM> done;
    return value.get([&](xml::NsOutline *pending) {
        done = Ref(std::exchange(plain, nullptr));
        xml::LockedNsMaker maker(pending->shared);
        const xml::Outline &records = *pending->outline;
        maker->ahead.expect(wholly ? records.behind(number()) : number() + 1);
        if (type() != XML_ITEM_TYPE_ELEMENT) return retained(node);
        auto *element = reinterpret_cast<XML_ELEMENT *>(node);
        if (!wholly) maker->ahead.expect(records.behindAttributes(number()));
        return vo::obj(maker->element(*pending, element, number(), wholly));
    });
}
