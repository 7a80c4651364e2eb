#include "source/xml/base/xml_builder.hpp"

#include "source/vo/vo_utf.hpp"
#include "source/xml/base/xml_skip.hpp"

#include <algorithm>

namespace xml {

static bool isBlank(const Piece &piece) { return skipS(piece.begin, piece.end) == piece.end; }

/// Memory of a typical tree as a multiple of its text, to size the first chunk.
constexpr int64_t treePerText = 6;

Builder::Builder(Piece text)
    : place(text.size() * treePerText), ascii{text.begin, text.begin}, textEnd(text.end) {
    noAttributes = place.create<XML_ATTRIBUTES>(sorts.attributes);
    noAttributes->vector = vector(std::span<XML_ATTRIBUTE *>());
    noItems = items({});
}

Builder::~Builder() {
    vo::release(noAttributes);
    vo::release(noItems);
    for (Blank &blank : blanks)
        vo::release(blank.item);
}

/// Pieces come front to back, so that looking ahead for the next character above 127 costs one
/// pass over the text in all.
bool Builder::isAscii(const Piece &piece) {
    if (piece.begin < ascii.begin) return vo::skipAscii(piece.begin, piece.end) == piece.end;
    if (piece.begin > ascii.end || ascii.end < piece.end)
        ascii = {piece.begin, vo::skipAscii(piece.begin, textEnd)};
    return piece.end <= ascii.end;
}

voString *Builder::string(const Piece &piece) {
    const bool plain = isAscii(piece);
    int64_t length = plain ? piece.size() : vo::countUtf8(piece.begin, piece.end);
    auto *string = place.createArray<voString>(sorts.string, length);
    const bool inBlocks =
        plain && vo::ChunkPlacer::isPlaced(int64_t{sizeof(voString)} + length * 4);
    if (!inBlocks || !widenInBlocks(string->items(), piece))
        vo::widenUtf8(string->items(), piece.begin, piece.end);
    return string;
}

/// Widens ASCII 16 characters at a time, past the end of the string into the chunk's slack: most
/// strings are so short that counting exactly would take longer. Not near the end of the text.
bool Builder::widenInBlocks([[maybe_unused]] uint32_t *out,
                            [[maybe_unused]] const Piece &piece) const {
#if defined(__SSE2__) && VO_CHUNKS
    if (textEnd - piece.end < 16) return false;
    for (const uint8_t *at = piece.begin; at < piece.end; at += 16, out += 16)
        vo::widen16(out, vo::load16(at));
    return true;
#else
    return false;
#endif
}

template <class T> voVector *Builder::vector(std::span<T *> objects) {
    auto length = int64_t(objects.size());
    auto *vector = place.createArray<voVector>(sorts.vector, length);
    std::transform(objects.begin(), objects.end(), vector->items(), vo::obj<T>);
    return vector;
}

XML_ATTRIBUTE *Builder::attribute(Name *name, const Piece &value, voParserLocation *location) {
    auto *attr = place.create<XML_ATTRIBUTE>(sorts.attribute);
    auto *text = place.create<XML_TEXT>(sorts.text);
    attr->name = share<voString>(name->string);
    attr->text = text;
    attr->location = location;
    text->value = string(value);
    text->location = nullptr;
    return attr;
}

XML_ITEM *Builder::element(Name *name, std::span<XML_ATTRIBUTE *> attributes,
                           voParserLocation *location) {
    auto [item, element] = itemWith<XML_ELEMENT>(XML_ITEM_TYPE_ELEMENT, sorts.element);
    element->name = share<voString>(name->string);
    if (attributes.empty()) {
        element->attributes = share(noAttributes);
    } else {
        element->attributes = place.create<XML_ATTRIBUTES>(sorts.attributes);
        element->attributes->vector = vector(attributes);
    }
    element->items = nullptr;
    element->location = location;
    return item;
}

void Builder::setChildren(XML_ELEMENT *element, std::span<XML_ITEM *> children) {
    element->items = children.empty() ? share(noItems) : items(children);
}

XML_ITEMS *Builder::items(std::span<XML_ITEM *> items) {
    auto *list = place.create<XML_ITEMS>(sorts.items);
    list->itemsVector = vector(items);
    return list;
}

XML_ITEM *Builder::text(const Piece &value, voParserLocation *location) {
    if (location || !isBlank(value))
        return characterData<XML_TEXT>(XML_ITEM_TYPE_TEXT, sorts.text, value, location);
    // Runs of white space differ most in their length.
    Blank &known = blanks[uint64_t(value.size()) % blanks.size()];
    if (known.item && known.bytes == value.bytes()) return share(known.item);
    vo::release(known.item);
    known.bytes = value.bytes();
    known.item = characterData<XML_TEXT>(XML_ITEM_TYPE_TEXT, sorts.text, value, location);
    return share(known.item);
}

} // namespace xml
