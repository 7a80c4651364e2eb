// Enumerations by a table of names.
#pragma once

#include "source/vo/vo_object.hpp"
#include "vo/vo_enum.h"

#include <span>

namespace xml {

/// A registry of `names`, whose values are their places in the table.
inline voEnum *makeEnum(std::span<const char *const> names) {
    voEnum *made = voEnumCreate();
    for (int64_t value = 0; const char *name : names)
        voEnumSetEnumerantCstr(&made, name, -1, value++);
    return made;
}

} // namespace xml
