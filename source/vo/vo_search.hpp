// Finding a run of code points in another.
#pragma once

#include <cstdint>

namespace vo {

/// Where `chars` first occur in `text`, or -1. Takes time linear in both lengths.
int64_t search(const uint32_t *text, int64_t length, const uint32_t *chars, int64_t count);

} // namespace vo
