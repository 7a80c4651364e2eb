#include "vo/vo_string.h"

#include "source/vo/vo_array.hpp"
#include "source/vo/vo_cstr.hpp"
#include "source/vo/vo_format.hpp"
#include "source/vo/vo_live.hpp"
#include "source/vo/vo_search.hpp"
#include "vo/vo_memory.h"

#include <algorithm>
#include <cstdarg>

using namespace vo;

static int64_t compareStrings(voObj *objA, voObj *objB) {
    voString *a = voStringFrom(objA);
    voString *b = voStringFrom(objB);
    auto [endA, endB] =
        std::mismatch(a->items(), a->items() + std::min(a->length, b->length), b->items());
    if (endA == a->items() + std::min(a->length, b->length)) return a->length - b->length;
    return *endA < *endB ? -1 : 1;
}

static voString *stringItself(voObj *obj) { return retained(voStringFrom(obj)); }

constinit voSort vo___sort_voString = {{nullptr, 1}, nullptr,        "voString",
                                       nullptr,      compareStrings, stringItself};
VO_OPERATIONS(voString, voString, vo___sort_voString);

static voString *copyChars(const uint32_t *chars, int64_t count) {
    return copyArray<voString>(voStringSort(), chars, count, count);
}

/// Makes room for `count` more code points at the end and gives their place.
static uint32_t *grow(voString **str, int64_t count) {
    int64_t length = (*str)->length;
    VO_ASSERT(count <= mostItems<voString> - length);
    return resizeArray(str, length + count)->items() + length;
}

static bool isInside(voString *str, const uint32_t *chars) {
    auto begin = reinterpret_cast<uintptr_t>(str->items());
    auto at = reinterpret_cast<uintptr_t>(chars);
    return at >= begin && at < begin + size_t(str->length) * sizeof(uint32_t);
}

static void append(voString **str, const uint32_t *chars, int64_t count) {
    if (!count) return;
    // Another holder keeps the block where it is until its own code points are copied from it.
    Ref<voString> holder(isInside(*str, chars) ? retained(*str) : nullptr);
    uint32_t *place = grow(str, count);
    std::memcpy(place, chars, size_t(count) * sizeof(*chars));
}

static bool isAscii(const char *cstr, int64_t length) {
    return std::all_of(cstr, cstr + length, [](char c) { return uint8_t(c) < 128; });
}

// ---------------------------------------------------------------- making

voString *voStringCreate(void) { return createArray<voString>(voStringSort(), 0); }

voString *voStringCreateFrom(voString *source) {
    VO_ASSERT(source);
    return copyChars(source->items(), source->length);
}

voString *voStringCreateFromCstr(const char *cstr, int64_t length) {
    Ref str(voStringCreate());
    voStringAppendCstr(str.edit(), cstr, length);
    return str.take();
}

voString *voStringCreateFromCharsCopy(const uint32_t *chars, int64_t count) {
    VO_ASSERT(count >= 0);
    VO_ASSERT(chars || !count);
    VO_ASSERT(count <= mostItems<voString>);
    return copyChars(chars, count);
}

voString *voStringCreateFromCharsUse(uint32_t *chars, int64_t count) {
    VO_ASSERT(chars);
    // See voMemAllocN(): a string's header is in front, and tells the room.
    auto *str = reinterpret_cast<voString *>(chars) - 1;
    VO_ASSERT(count >= 0 && count <= str->length);
    new (&str->base) voObj{voStringSort(), 1};
    countLive(1);
    str->length = count;
    return str;
}

voString *voStringCreateFromLeading(voString *str, int64_t count) {
    VO_ASSERT(str);
    VO_ASSERT(count >= 0 && count <= str->length);
    return count == str->length ? retained(str) : copyChars(str->items(), count);
}

voString *voStringCreateFromFormatCstr(const char *format, int64_t length, ...) {
    Ref str(voStringCreate());
    va_list args;
    va_start(args, length);
    appendFormat(str.edit(), format, length, args);
    va_end(args);
    return str.take();
}

// ---------------------------------------------------------------- reading

int64_t voStringLength(voString *str) { return VO_READ(str)->length; }

const uint32_t *voStringBacking(voString *str) { return VO_READ(str)->items(); }

uint32_t voStringCharAt(voString *str, int64_t index) {
    VO_ASSERT(str);
    VO_ASSERT(index >= 0 && index < str->length);
    return str->items()[index];
}

int voStringEqualsChars(voString *str, const uint32_t *chars, int64_t count) {
    return voStringBeginsWithChars(str, chars, count) && str->length == count;
}

int voStringBeginsWithChars(voString *str, const uint32_t *chars, int64_t count) {
    VO_ASSERT(str);
    VO_ASSERT(count >= 0);
    VO_ASSERT(chars || !count);
    return count <= str->length && std::equal(str->items(), str->items() + count, chars);
}

int64_t voStringFindChar(voString *str, int64_t from, uint32_t ch) {
    VO_ASSERT(str);
    return voStringFindChars(str, from, &ch, 1);
}

int64_t voStringFindChars(voString *str, int64_t from, const uint32_t *chars, int64_t count) {
    VO_ASSERT(str);
    VO_ASSERT(from >= 0);
    VO_ASSERT(count >= 0);
    VO_ASSERT(chars || !count);
    if (from > str->length) return -1;
    int64_t found = search(str->items() + from, str->length - from, chars, count);
    return found < 0 ? -1 : from + found;
}

// ---------------------------------------------------------------- changing

void voStringAppend(voString **str, voString *other) {
    VO_ASSERT_REF(str);
    VO_ASSERT(other);
    append(str, other->items(), other->length);
}

void voStringAppendChar(voString **str, uint32_t ch) {
    VO_ASSERT_REF(str);
    *grow(str, 1) = ch;
}

void voStringAppendChars(voString **str, const uint32_t *chars, int64_t count) {
    VO_ASSERT_REF(str);
    VO_ASSERT(count >= 0);
    VO_ASSERT(chars || !count);
    append(str, chars, count);
}

void voStringAppendCstr(voString **str, const char *cstr, int64_t length) {
    VO_ASSERT_REF(str);
    length = cstrLength(cstr, length);
    VO_ASSERT(isAscii(cstr, length));
    std::copy(cstr, cstr + length, grow(str, length));
}

void voStringPrependChar(voString **str, uint32_t ch) {
    VO_ASSERT_REF(str);
    grow(str, 1);
    uint32_t *items = (*str)->items();
    std::copy_backward(items, items + (*str)->length - 1, items + (*str)->length);
    items[0] = ch;
}

void voStringAppendFormatCstr(voString **str, const char *format, int64_t length, ...) {
    VO_ASSERT_REF(str);
    va_list args;
    va_start(args, length);
    appendFormat(str, format, length, args);
    va_end(args);
}

void voStringDelLeading(voString **str, int64_t count) {
    VO_ASSERT_REF(str);
    VO_ASSERT(count >= 0 && count <= (*str)->length);
    keepRange(str, count, (*str)->length - count);
}
