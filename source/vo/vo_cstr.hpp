// Byte strings with a length that may be left to their NUL.
#pragma once

#include "source/vo/vo_object.hpp"

#include <cstring>

namespace vo {

/// The length of the byte string that `cstr` and `length` stand for.
inline int64_t cstrLength(const char *cstr, int64_t length) {
    VO_ASSERT(cstr);
    VO_ASSERT(length >= -1);
    return length < 0 ? int64_t(std::strlen(cstr)) : length;
}

} // namespace vo
