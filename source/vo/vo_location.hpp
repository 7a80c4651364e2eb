// The fields of a location, for code that makes or reads many of them.
#pragma once

#include "source/vo/vo_newline.hpp"
#include "source/vo/vo_object.hpp"
#include "vo/vo_location.h"

struct voParserLocation {
    voObj base;
    voString *source; ///< Null when it has no name.
    int64_t offset;
    int64_t line;
    int64_t column;

    auto fields() { return std::tie(source, offset, line, column); }
};

namespace vo {

/// Where counting starts: at an optional location, or at the beginning of a text.
inline Place placeOf(voParserLocation *optionalLocation) {
    if (!optionalLocation) return {};
    return {optionalLocation->offset, optionalLocation->line, optionalLocation->column};
}

} // namespace vo
