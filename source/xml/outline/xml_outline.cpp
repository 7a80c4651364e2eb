#include "source/xml/outline/xml_outline.hpp"

#include "source/xml/base/xml_module.hpp"
#include "source/xml/base/xml_skip.hpp"
#include "source/xml/outline/xml_outline_objects.hpp"

#include <new>

namespace xml {
namespace {

void freeOutline(voObj *obj) {
    auto *outline = reinterpret_cast<Outline *>(obj);
    for (void *chunk : outline->blocks)
        vo___ChunkClose(chunk, 0);
    vo::discard(outline->maker);
    vo::discard(outline->locator);
    outline->~Outline();
}

constinit voSort memorySort = {{nullptr, 1}, &xml___module, "XML_OUTLINE_MEMORY", nullptr};
constinit voSort outlineSort = {{nullptr, 1}, &xml___module, "XML_OUTLINE", freeOutline};

} // namespace

voObj *createOutlineMemory(uint64_t recordBytes) {
    return vo___ObjCreate(int64_t(sizeof(Outline) + recordBytes), &memorySort);
}

Outline *makeOutline(voObj *memory, uint64_t room, uint64_t recordBytes, uint64_t names) {
    constexpr uint64_t mostWaste = 512; // giving back less is not worth its time
    const uint64_t namesAt = sizeof(Outline) + (recordBytes + 7) / 8 * 8;
    const uint64_t size = namesAt + names * sizeof(Piece);
    room += sizeof(Outline);
    if (size > room || room - size > mostWaste) memory = vo___ObjResize(memory, int64_t(size));
    auto *first = reinterpret_cast<Piece *>(reinterpret_cast<char *>(memory) + namesAt);
    return new (memory) Outline{.base = {&outlineSort, 1},
                                .source = {},
                                .isWide = false,
                                .count = 0,
                                .blocks = {},
                                .names = {first, names},
                                .patches = {},
                                .locator = nullptr,
                                .maker = nullptr};
}

const uint8_t *Outline::valueBehind(const uint8_t *nameEnd) const {
    return skipEq(nameEnd, source.text.end) + 1;
}

uint64_t Outline::behindAttributes(uint64_t element) const {
    const uint64_t behindAll = node(element).end;
    uint64_t number = element + 1;
    while (number < behindAll && node(number).kind == attributeKind)
        ++number;
    return number;
}

namespace {

/// Skips an end tag. The text is known to be well-formed.
const uint8_t *skipEndTag(const uint8_t *at, const uint8_t *end) {
    return skipS(skipName(skipS(at + 2, end), end), end) + 1;
}

/// Skips the rest of a start tag, from the end of its name or of its last value on, and the end tag
/// that follows if there is no content.
const uint8_t *skipEmptyElement(const uint8_t *at, const uint8_t *end) {
    at = skipS(at, end);
    return *at == '/' ? skipS(at + 1, end) + 1 : skipEndTag(at + 1, end);
}

} // namespace

Outline::Extent Outline::contentOf(uint64_t element) const {
    if (element == root) return {source.content, uint64_t(source.text.size())};
    return {placeOf(node(behindAttributes(element))), endTagPlaceOf(element)};
}

const uint8_t *Outline::behindLeaf(uint64_t number) const {
    const Node leaf = node(number);
    if (leaf.kind != XML_ITEM_TYPE_ELEMENT) return at(leaf.end + enclosing[leaf.kind].after.size());
    if (leaf.end > number + 1)
        return skipEmptyElement(at(node(leaf.end - 1).end + 1), source.text.end);
    const uint8_t *name = skipS(at(leaf.begin + 1), source.text.end);
    return skipEmptyElement(name + names[leaf.name].size(), source.text.end);
}

uint64_t Outline::endTagPlace(uint64_t number, int64_t outer) const {
    for (;;) {
        const Node found = node(number);
        if (found.kind != XML_ITEM_TYPE_ELEMENT) break;
        uint64_t child = behindAttributes(number);
        if (child == found.end) break;
        for (uint64_t next = child; next < found.end; next = behind(next))
            child = next;
        number = child;
        ++outer;
    }
    const uint8_t *place = behindLeaf(number);
    for (; outer > 0; --outer)
        place = skipEndTag(place, source.text.end);
    return uint64_t(place - source.text.begin);
}

} // namespace xml
