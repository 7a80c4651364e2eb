// A count of the objects there are, so that tests find what was never released.
#pragma once

#include <cstdint>

namespace vo {

/// Counts objects that came (or went, when negative). Does nothing unless VO_COUNT_OBJECTS is set.
void countLive(int64_t change);

/// Objects that exist now, or -1 when the build does not count them.
int64_t liveObjects();

} // namespace vo
