// The order of containers.
#pragma once

#include "source/vo/vo_object.hpp"

namespace vo {

/// The comparison of vectors, dictionaries and stores: item by item, then by length. Needs no stack
/// in proportion to the depth of the structures.
int64_t compareContainers(voObj *a, voObj *b);

} // namespace vo
