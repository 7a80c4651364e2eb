#include "source/xml/ns/xml_ns_factory.hpp"

#include "source/vo/vo_hash.hpp"
#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/ns/xml_ns_attribute.hpp"
#include "source/xml/ns/xml_ns_attributes.hpp"
#include "source/xml/ns/xml_ns_namespace_map.hpp"

#include <algorithm>

namespace xml {

XML_NS_ELEMENT *NsFactory::element(XML_ELEMENT *plain, const NsNumber *numbers) {
    auto *made = place.create<XML_NS_ELEMENT>(sorts.element);
    made->localName = localName(plain->name);
    made->ns = ns(numbers[0]);
    made->attributes = attributes(plain->attributes->vector, numbers + 1);
    made->namespaceMap = namespaceMap(plain->attributes->vector, numbers + 1);
    made->location = vo::retained(plain->location);
    made->items = nullptr;
    return made;
}

XML_NS_ATTRIBUTES *NsFactory::attributes(voVector *plain, const NsNumber *numbers) {
    const auto count = std::count_if(numbers, numbers + plain->length, isNsAttribute);
    if (count == 0) {
        if (!noAttributes) noAttributes = vo::Ref(xmlNsAttributesCreate());
        return vo::retained<XML_NS_ATTRIBUTES>(noAttributes);
    }
    auto *list = place.create<XML_NS_ATTRIBUTES>(sorts.attributes);
    list->vector = place.vector(count);
    for (int64_t i = 0; i < plain->length; ++i) {
        if (!isNsAttribute(numbers[i])) continue;
        auto *attr = reinterpret_cast<XML_ATTRIBUTE *>(plain->items()[i]);
        auto *made = place.create<XML_NS_ATTRIBUTE>(sorts.attribute);
        made->localName = localName(attr->name);
        made->ns = ns(numbers[i]);
        made->text = vo::retained(attr->text);
        made->location = vo::retained(attr->location);
        place.push(list->vector, made);
    }
    return list;
}

XML_NS_NAMESPACE_MAP *NsFactory::namespaceMap(voVector *plain, const NsNumber *numbers) {
    const auto declares = [](NsNumber number) { return (number & nsDeclares) != 0; };
    const auto count = std::count_if(numbers, numbers + plain->length, declares);
    if (count == 0) return nullptr;
    auto *map = place.create<XML_NS_NAMESPACE_MAP>(sorts.map);
    map->mappings = place.vector(count);
    map->index = nullptr;
    for (int64_t i = 0; i < plain->length; ++i) {
        if (!declares(numbers[i])) continue;
        voString *name = reinterpret_cast<XML_ATTRIBUTE *>(plain->items()[i])->name;
        auto *mapping = place.create<XML_NS_NAMESPACE_MAPPING>(sorts.mapping);
        const bool isDefault = name->length == 5; // xmlns
        mapping->prefix = isDefault ? nullptr : localName(name);
        mapping->ns = ns(numbers[i] & ~nsDeclares);
        place.push(map->mappings, mapping);
    }
    xml___NsNamespaceMapBuildCache(&map);
    return map;
}

XML_NS_ITEM *NsFactory::item(XML_ITEM_TYPE type, voObj *node) {
    auto *item = place.create<XML_NS_ITEM>(sorts.item);
    item->tag = itemTag(type);
    item->value.set(node);
    item->plain = nullptr;
    return item;
}

XML_NS_ITEM *NsFactory::pendingItem(XML_ITEM *plain, uint64_t number, NsOutline *outline) {
    auto *item = place.create<XML_NS_ITEM>(sorts.item);
    item->tag = itemTag(plain->type(), number);
    item->value.setPending(outline);
    item->plain = vo::retained(plain);
    return item;
}

XML_NS_ITEMS *NsFactory::list(int64_t length) {
    if (length == 0) {
        if (!noItems) noItems = vo::Ref(xmlNsItemsCreate());
        return vo::retained<XML_NS_ITEMS>(noItems);
    }
    auto *list = place.create<XML_NS_ITEMS>(sorts.items);
    list->itemsVector.set(place.vector(length));
    list->plain = nullptr;
    return list;
}

XML_NS_ITEMS *createPendingItems(XML_ITEMS *plain, uint64_t element, NsOutline *outline) {
    auto *list = vo::create<XML_NS_ITEMS>(xmlNsItemsSort());
    list->itemsVector.setPending(outline);
    list->plain = vo::retained(plain);
    list->element = element;
    return list;
}

voString *NsFactory::localName(voString *whole) {
    Known *&last = recent.at(whole);
    if (!last || last->whole != whole) {
        const uint64_t hash = vo::hashBytes(&whole, sizeof(whole));
        last = known.find(hash, [&](const Known &name) { return name.whole == whole; });
        if (!last) {
            last = &known.add(hash);
            last->whole = vo::Ref(vo::retained(whole));
            const std::span<const uint32_t> chars(whole->items(), size_t(whole->length));
            const auto local = localPart(chars);
            last->local =
                vo::Ref(local.size() == chars.size()
                            ? vo::retained(whole)
                            : voStringCreateFromCharsCopy(local.data(), int64_t(local.size())));
        }
    }
    return vo::retained<voString>(last->local);
}

} // namespace xml
