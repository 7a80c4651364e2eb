// Finding elements in a list of either layer.
#pragma once

#include "source/xml/cursor/xml_cursor_layer.hpp"
#include "source/xml/cursor/xml_record_cursor.hpp"

#include <optional>
#include <string_view>

namespace xml {

/// What an element is called; without a name every element is meant.
class ElementName {
  public:
    ElementName() = default;
    explicit ElementName(std::string_view name, std::optional<std::string_view> nsName = {})
        : bytes(name), string(stringOf(name)), ns(nsName ? stringOf(*nsName) : nullptr),
          isPossible(string && (ns || !nsName)) {}

    /// Whether there can be such an element.
    explicit operator bool() const { return isPossible; }

    template <class Layer> bool fits(Layer, typename Layer::Element *element) const {
        return !string || (voStringEquals(Layer::name(element), string) &&
                           voStringEquals(Layer::ns(element), ns));
    }
    bool fits(const RecordCursor &record) const {
        return !string || (record.name().bytes() == bytes && voStringEquals(record.ns(), ns));
    }

  private:
    static voString *stringOf(std::string_view utf8) {
        return voStringTryCreateFromUtf8(utf8.data(), int64_t(utf8.size()));
    }

    std::string_view bytes;
    vo::Ref<voString> string, ns;
    bool isPossible = true;
};

/// Looks for an element without making any: where there is no object it reads the record.
template <class Layer> class ChildSearch {
  public:
    explicit ChildSearch(const ElementName &name) : wanted(name) {}

    /// The index of the first one at or after `from`, or -1.
    template <class List> int64_t find(List *list, int64_t from) {
        if (!wanted) return -1;
        // Who goes on behind a child has most likely asked for that, and so for the list.
        if (from == 0 && keep(list->itemsVector)) return findRecord(list->element);
        voVector *vector = vectorOf(list);
        for (int64_t i = from; i < vector->length; ++i)
            if (fits(reinterpret_cast<typename Layer::Item *>(vector->items()[i]))) return i;
        return -1;
    }

  private:
    template <class Part> bool keep(const Part &part) {
        return outline.keep(part, [this](auto *held) { records.read(held); });
    }

    int64_t findRecord(uint64_t element) {
        int64_t index = 0;
        for (bool found = records.startIn(element); found; found = records.toNext(), ++index)
            if (records.type() == XML_ITEM_TYPE_ELEMENT && wanted.fits(records)) return index;
        return -1;
    }

    bool fits(typename Layer::Item *item) {
        if (item->type() != XML_ITEM_TYPE_ELEMENT) return false;
        if (!keep(item->value))
            return wanted.fits(Layer(), held<typename Layer::Element>(item, item->type()));
        records.startAt(item->number());
        return wanted.fits(records);
    }

    const ElementName &wanted;
    RecordCursor records;
    KeptOutline outline;
};

template <class Layer, class List>
int64_t findElement(Layer, List *list, int64_t from, const ElementName &name) {
    return ChildSearch<Layer>(name).find(list, from);
}

} // namespace xml
