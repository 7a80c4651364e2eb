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
    auto made = place.create<XML_NS_ELEMENT>(sorts.element);
    voVector *of = plain->attributes->vector;
    return made.with(localName(plain->name), ns(numbers[0]), attributes(of, numbers + 1), nullptr,
                     namespaceMap(of, numbers + 1), vo::retained(plain->location));
}

XML_NS_ATTRIBUTES *NsFactory::attributes(voVector *plain, const NsNumber *numbers) {
    const auto count = std::count_if(numbers, numbers + plain->length, isNsAttribute);
    if (count == 0) {
        if (!noAttributes) noAttributes = vo::Ref(xmlNsAttributesCreate());
        return vo::retained<XML_NS_ATTRIBUTES>(noAttributes);
    }
    auto unset = place.create<XML_NS_ATTRIBUTES>(sorts.attributes);
    auto *list = unset.with(place.vector(count));
    for (int64_t i = 0; i < plain->length; ++i) {
        if (!isNsAttribute(numbers[i])) continue;
        auto *attr = reinterpret_cast<XML_ATTRIBUTE *>(plain->items()[i]);
        auto made = place.create<XML_NS_ATTRIBUTE>(sorts.attribute);
        place.push(list->vector, made.with(localName(attr->name), ns(numbers[i]),
                                           vo::retained(attr->text), vo::retained(attr->location)));
    }
    return list;
}

XML_NS_NAMESPACE_MAP *NsFactory::namespaceMap(voVector *plain, const NsNumber *numbers) {
    const auto declares = [](NsNumber number) { return (number & nsDeclares) != 0; };
    const auto count = std::count_if(numbers, numbers + plain->length, declares);
    if (count == 0) return nullptr;
    auto unset = place.create<XML_NS_NAMESPACE_MAP>(sorts.map);
    auto *map = unset.with(place.vector(count), nullptr);
    for (int64_t i = 0; i < plain->length; ++i) {
        if (!declares(numbers[i])) continue;
        voString *name = reinterpret_cast<XML_ATTRIBUTE *>(plain->items()[i])->name;
        auto mapping = place.create<XML_NS_NAMESPACE_MAPPING>(sorts.mapping);
        const bool isDefault = name->length == 5; // xmlns
        place.push(map->mappings, mapping.with(isDefault ? nullptr : localName(name),
                                               ns(numbers[i] & ~nsDeclares)));
    }
    xml___NsNamespaceMapBuildCache(&map);
    return map;
}

XML_NS_ITEM *NsFactory::item(XML_ITEM_TYPE type, voObj *node) {
    using Value = decltype(XML_NS_ITEM::value);
    return place.create<XML_NS_ITEM>(sorts.item).with(itemTag(type), Value(node), nullptr);
}

XML_NS_ITEM *NsFactory::pendingItem(XML_ITEM *plain, uint64_t number, NsOutline *outline) {
    using Value = decltype(XML_NS_ITEM::value);
    return place.create<XML_NS_ITEM>(sorts.item)
        .with(itemTag(plain->type(), number), Value(outline), vo::retained(plain));
}

XML_NS_ITEMS *NsFactory::list(int64_t length) {
    if (length == 0) {
        if (!noItems) noItems = vo::Ref(xmlNsItemsCreate());
        return vo::retained<XML_NS_ITEMS>(noItems);
    }
    using Vector = decltype(XML_NS_ITEMS::itemsVector);
    auto made = place.create<XML_NS_ITEMS>(sorts.items);
    return made.with(Vector(place.vector(length)), nullptr);
}

XML_NS_ITEMS *createPendingItems(XML_ITEMS *plain, uint64_t element, NsOutline *outline) {
    auto *list = vo::create<XML_NS_ITEMS>(xmlNsItemsSort());
    list->fields() = std::tuple(decltype(list->itemsVector)(outline), vo::retained(plain));
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
