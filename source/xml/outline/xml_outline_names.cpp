#include "source/xml/outline/xml_outline_names.hpp"

#include "source/xml/base/xml_skip.hpp"

#include <algorithm>

namespace xml {
namespace {

/// The two words that a name of up to 15 bytes makes, from 16 bytes that begin with it.
struct Words {
    uint64_t first, second;

    Words(const uint8_t *at, size_t size) {
        std::memcpy(&first, at, 8);
        std::memcpy(&second, at + 8, 8);
        if (size < 8)
            first &= mask(size), second = 0;
        else
            second &= mask(size - 8);
    }

    static uint64_t mask(size_t bytes) { return (uint64_t{1} << (8 * bytes)) - 1; }

    /// One multiplication with the keys: without knowing them nobody can find names that are
    /// likelier to collide than others.
    uint64_t hash(size_t size) const {
        const vo::HashKeys &keys = vo::hashKeys();
        const auto product = vo::Wide{first + keys.squared} * (second + keys.scramble + size);
        const uint64_t folded = uint64_t(product) ^ uint64_t(product >> 64);
        return folded ^ folded >> 32;
    }
};

uint64_t hashOf(Piece name) {
    const auto size = size_t(name.size());
    if (size > 15) return vo::hashBytes(name.begin, size);
    uint8_t bytes[16] = {};
    std::memcpy(bytes, name.begin, size);
    return Words(bytes, size).hash(size);
}

uint32_t maskOf(size_t bytes) { return bytes <= 16 ? (1U << bytes) - 1 : OutlineName::noMask; }

} // namespace

OutlineNames::OutlineNames() {
    slots.resize(slots.room());
    std::fill_n(slots.data(), slots.size(), 0);
    OutlineName none{}; // number 0, which is never found
    none.nameMask = none.attributeMask = OutlineName::noMask;
    names.push(none);
}

template <class IsWanted> uint32_t OutlineNames::lookUp(uint64_t hash, IsWanted isWanted) {
    const size_t mask = slots.size() - 1;
    for (size_t i = hash & mask; slots[i]; i = (i + 1) & mask)
        if (names[slots[i]].hash == hash && isWanted(names[slots[i]])) return slots[i];
    return 0;
}

uint32_t OutlineNames::intern(Piece name) {
    const uint64_t hash = hashOf(name);
    const uint32_t known =
        lookUp(hash, [&](const OutlineName &n) { return n.bytes.bytes() == name.bytes(); });
    return known ? known : add(name, hash);
}

uint32_t OutlineNames::add(Piece name, uint64_t hash) {
    VO_ASSERT(names.size() < UINT32_MAX);
    const auto number = uint32_t(names.size());
    const auto size = size_t(name.size());
    OutlineName entry{};
    std::memcpy(entry.pattern, name.begin, std::min<size_t>(size, 16));
    if (size < 16) entry.pattern[size] = '=';
    if (size < 15) entry.pattern[size + 1] = '"';
    entry.nameMask = maskOf(size);
    entry.attributeMask = maskOf(size + 2);
    entry.hash = hash;
    entry.bytes = name;
    names.push(entry);
    if (2 * names.size() > slots.size()) rehash();
    place(number);
    return number;
}

void OutlineNames::place(uint32_t number) {
    const size_t mask = slots.size() - 1;
    size_t i = names[number].hash & mask;
    while (slots[i])
        i = (i + 1) & mask;
    slots[i] = number;
}

/// Makes room for twice the names. The newest one has no slot yet.
void OutlineNames::rehash() {
    slots.grow();
    slots.resize(slots.room());
    std::fill_n(slots.data(), slots.size(), 0);
    for (uint32_t number = 1; number + 1 < names.size(); ++number)
        place(number);
}

void OutlineNames::copyTo(std::span<Piece> pieces) const {
    std::transform(names.data(), names.data() + names.size(), pieces.begin(),
                   [](const OutlineName &name) { return name.bytes; });
}

#if defined(__SSE2__)

uint32_t OutlineNames::find(const uint8_t *at) {
    const __m128i bytes = vo::load16(at), blank = _mm_set1_epi8(' ');
    const auto is = [&](char c) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c)); };
    const __m128i ends =
        _mm_or_si128(_mm_or_si128(is('='), is('>')),
                     _mm_or_si128(is('/'), _mm_cmpeq_epi8(_mm_min_epu8(bytes, blank), bytes)));
    const unsigned mask = vo::notAscii16(ends);
    const auto size = size_t(__builtin_ctz(mask | 0x10000));
    if (size > 15) return findLong(at);
    if (size == 0) return 0;
    const Words words(at, size);
    uint32_t &last = recent[((words.first ^ size) * UINT64_C(0x9E3779B97F4A7C15)) >> 58];
    const auto isHere = [&](const OutlineName &name) {
        return name.size() == size && (agreement(at, name) & name.nameMask) == name.nameMask;
    };
    if (last && isHere(names[last])) return last;
    const uint64_t hash = words.hash(size);
    uint32_t number = lookUp(hash, isHere);
    if (!number) {
        if (names.isFull() || skipName(at, at + size) != at + size) return 0;
        number = add({at, at + size}, hash);
    }
    return last = number;
}

/// The same for names of 16 to 32 bytes.
uint32_t OutlineNames::findLong(const uint8_t *at) {
    const auto goesOn = [](uint8_t c) { return c < 128 && asciiNameClasses[c] & nameBit; };
    size_t size = 0;
    while (size <= 32 && goesOn(at[size]))
        ++size;
    const bool isName = size > 0 && size <= 32 && at[size] < 128 && isNameStart(at[0]);
    return isName && !names.isFull() ? intern({at, at + size}) : 0;
}

#endif

} // namespace xml
