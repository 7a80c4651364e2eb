// The contestants of the race: libraries, and the works that each can do with a file.
#pragma once

#include "bench/group.hpp"

#include <array>
#include <cstdint>

namespace bench {

/// Does one work on one file, from its bytes to the last release. The result depends on all that
/// was read or written, so that nothing is optimised away; it is 0 when the file is refused.
using Work = uint64_t (*)(const File &);

/// A library, or one way of using it. A work that it cannot do is null.
struct Contestant {
    const char *name;
    Work decode = nullptr;     ///< To a tree, and release it.
    Work locations = nullptr;  ///< The same with the place of every node.
    Work namespaces = nullptr; ///< The same with every name resolved.
    Work encode = nullptr;     ///< Decode, encode without layout, release.
    Work read = nullptr;       ///< Decode, read every name and value once, release.
    Work change = nullptr;     ///< Decode, set an attribute of a deep element, encode, release.
    Work keep = nullptr;       ///< Decode, and never release.
};

extern const Contestant voxmlTree, voxmlGetters;
extern const Contestant pugixmlTree, rapidxmlTree, libxml2Tree, expatCallbacks, tinyxml2Tree;

inline constexpr std::array<const Contestant *, 7> contestants = {
    &voxmlTree,   &voxmlGetters,   &pugixmlTree, &rapidxmlTree,
    &libxml2Tree, &expatCallbacks, &tinyxml2Tree};

/// A checksum over lengths, which depends on their order.
struct Checksum {
    uint64_t value = 1;

    void add(int64_t length) { value = value * 31 + uint64_t(length); }
};

} // namespace bench
