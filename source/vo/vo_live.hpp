// A count of the objects that exist, so that tests find what was never released.
#pragma once

#include <cstdint>

namespace vo {

/// Adds to the count of objects (a negative `change` for freed ones), if VO_COUNT_OBJECTS is set.
void countLive(int64_t change);

/// Objects that exist now, or -1 when the build does not count them.
int64_t liveObjects();

} // namespace vo
