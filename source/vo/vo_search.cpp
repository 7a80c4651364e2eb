#include "source/vo/vo_search.hpp"

#include "source/vo/vo_allocator.hpp"

#include <algorithm>

namespace vo {
namespace {

/// How many of `chars` match so far, after `matched` of them did and `next` is the next code point.
int64_t advance(const uint32_t *chars, const Vec<int64_t> &borders, int64_t matched,
                uint32_t next) {
    while (matched && chars[matched] != next)
        matched = borders[size_t(matched) - 1];
    return chars[matched] == next ? matched + 1 : 0;
}

} // namespace

int64_t search(const uint32_t *text, int64_t length, const uint32_t *chars, int64_t count) {
    if (!count) return 0;
    if (count > length) return -1;
    if (count == 1) {
        const uint32_t *found = std::find(text, text + length, *chars);
        return found == text + length ? -1 : found - text;
    }
    // borders[i]: the longest proper beginning of chars[0..i] that also ends it.
    Vec<int64_t> borders{0};
    for (int64_t i = 1; i < count; ++i)
        borders.push_back(advance(chars, borders, borders.back(), chars[i]));
    int64_t matched = 0;
    for (int64_t i = 0; i < length; ++i) {
        matched = advance(chars, borders, matched, text[i]);
        if (matched == count) return i + 1 - count;
    }
    return -1;
}

} // namespace vo
