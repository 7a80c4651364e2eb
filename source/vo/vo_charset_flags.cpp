#include "vo/vo_charset.h"

#include "source/vo/vo_flag_text.hpp"

static constexpr const char *names[] = {"VO_CHARSET_FLAG_BOM", "VO_CHARSET_FLAG_SNIFF"};
static_assert(vo::namedBits(names) == (VO_CHARSET_FLAG_BOM | VO_CHARSET_FLAG_SNIFF));

voCharsetFlags voCharsetFlagsNormalize(voCharsetFlags flags) {
    return flags & vo::namedBits(names);
}

voString *voCharsetFlagsToString(voCharsetFlags flags) { return vo::writeNamedFlags(flags, names); }

voCharsetFlags voCharsetFlagsFromString(voString *str) {
    VO_ASSERT(str);
    return vo::readNamedFlags(str, names);
}
