// The names of a text that is being decoded, each found once.
#pragma once

#include "source/vo/vo_hash.hpp"
#include "source/vo/vo_inline_vector.hpp"
#include "source/vo/vo_utf.hpp"
#include "source/xml/outline/xml_outline.hpp"

#include <array>

namespace xml {

/// A name, and the names that are expected after it. Number 0 stands for no name.
struct OutlineName {
    /// The bytes of the name and, as far as there is room, an equals sign and a quotation mark: how
    /// an attribute of this name begins.
    uint8_t pattern[16];
    uint32_t nameMask;      ///< The bytes of the pattern that are the name; noMask for a long one.
    uint32_t attributeMask; ///< Those and the two behind them; noMask if they do not fit.
    uint32_t follower;      ///< The name that came after this one the last time.
    uint32_t sibling;       ///< The name of the element that came after the last one of this name.
    uint64_t seenIn;        ///< The last attribute list that had the name: finds duplicates.
    uint64_t hash;
    Piece bytes; ///< In the text.

    /// A mask for what does not fit into a pattern: no comparison gives it.
    static constexpr uint32_t noMask = 1U << 16;

    size_t size() const { return size_t(bytes.end - bytes.begin); }
};

/// Hashes are keyed, so that no document can be made to collide.
class OutlineNames {
  public:
    OutlineNames();

    /// The number of the name, which is added when it is new. Names keep their numbers; adding
    /// one may move them all.
    uint32_t intern(Piece name);

    OutlineName *data() { return names.data(); }
    OutlineName &operator[](uint32_t number) { return names[number]; }

    size_t size() const { return names.size(); }

    /// Copies the names by their numbers.
    void copyTo(std::span<Piece> pieces) const;

#if defined(__SSE2__)
    /// The number of the ASCII name at `at`, if it has at most 32 bytes and one of the characters
    /// behind it that end most names; else 0. 33 bytes must be readable. A new name is added if
    /// there is room for it.
    uint32_t find(const uint8_t *at);

    /// One bit for each of the first 16 bytes at `at` that equals the pattern's.
    static unsigned agreement(const uint8_t *at, const OutlineName &name) {
        return vo::notAscii16(_mm_cmpeq_epi8(vo::load16(at), vo::load16(name.pattern)));
    }
#endif

  private:
    uint32_t findLong(const uint8_t *at);
    uint32_t add(Piece name, uint64_t hash);
    void place(uint32_t number);
    void rehash();
    template <class IsWanted> uint32_t lookUp(uint64_t hash, IsWanted isWanted);

    vo::InlineVector<OutlineName, 32> names;
    vo::InlineVector<uint32_t, 64> slots; ///< Numbers by hash; a power of two, half of it free.
    std::array<uint32_t, 64> recent{};    ///< Numbers by how the names begin.
};

} // namespace xml
