// A keyed hash, which no input can be made to collide under.
#pragma once

#include <bit>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <unistd.h>

namespace vo {

/// Twice as wide as a word.
__extension__ using Wide = unsigned __int128;

/// Random keys of this process; each library that hashes has its own.
struct HashKeys {
    static constexpr uint64_t prime = (uint64_t{1} << 61) - 1;

    uint64_t point;   ///< Where the polynomial is evaluated.
    uint64_t squared; ///< The square of `point`.
    uint64_t scramble;

    /// The value modulo the prime, or a small multiple of the prime more.
    static constexpr uint64_t reduce(Wide value) {
        uint64_t once = uint64_t(value & prime) + uint64_t(value >> 61);
        return (once & prime) + (once >> 61);
    }

    static HashKeys draw() {
        uint64_t random[2];
        if (getentropy(random, sizeof(random)) != 0) {
            // Without a source of randomness the time and the address of the stack take its place.
            random[0] = uint64_t(std::chrono::steady_clock::now().time_since_epoch().count());
            random[1] = reinterpret_cast<uintptr_t>(&random) ^ random[0] << 32;
        }
        uint64_t point = random[0] % prime;
        return {point, reduce(Wide{point} * point), random[1] | 1};
    }
};

inline const HashKeys &hashKeys() {
    static const HashKeys keys = HashKeys::draw();
    return keys;
}

template <class Word> uint64_t loadWord(const char *at) {
    Word word;
    std::memcpy(&word, at, sizeof(word));
    return word;
}

/// Packs 1 to 7 bytes into a word; different bytes of the same number give different words.
inline uint64_t shortWord(const char *at, size_t size) {
    if (size >= 4) return loadWord<uint32_t>(at) | loadWord<uint32_t>(at + size - 4) << 32;
    return loadWord<uint8_t>(at) | loadWord<uint8_t>(at + size / 2) << 8 |
           loadWord<uint8_t>(at + size - 1) << 16;
}

/// Hashes `size` bytes. The bytes are the coefficients of a polynomial modulo a prime, evaluated at
/// a random point: whoever does not know the point cannot find inputs that collide, because for any
/// two inputs of n words at most 2n + 1 of the 2^61 points make them equal.
inline uint64_t hashBytes(const void *bytes, size_t size) {
    const HashKeys &keys = hashKeys();
    const char *at = static_cast<const char *>(bytes);
    uint64_t hash = size;
    auto add = [&](uint64_t word) {
        hash = HashKeys::reduce(Wide{hash} * keys.squared + Wide{word >> 32} * keys.point +
                                (word & 0xFFFFFFFF));
    };
    const char *end = at + size;
    for (; end - at >= 8; at += 8)
        add(loadWord<uint64_t>(at));
    if (at < end) add(size >= 8 ? loadWord<uint64_t>(end - 8) : shortWord(at, size));
    // Until here similar inputs have similar values; tables need all bits mixed.
    hash = (hash ^ keys.scramble) * UINT64_C(0x9E3779B97F4A7C15);
    hash ^= hash >> 32;
    hash *= keys.scramble;
    return hash ^ hash >> 32;
}

} // namespace vo
