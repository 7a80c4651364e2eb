// What two sequences have in common.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace tool {

inline constexpr size_t noPartner = static_cast<size_t>(-1);

/// Pairs equal members of two sequences in order: for each member of the first one the index of its
/// partner in the second one, or noPartner. As many as can be are paired when few are without a
/// partner; otherwise time is bounded by a multiple of the lengths, and fewer may be.
std::vector<size_t> align(size_t lengthA, size_t lengthB,
                          const std::function<bool(size_t, size_t)> &areEqual);

} // namespace tool
