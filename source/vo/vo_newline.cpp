#include "vo/vo_newline.h"

#include "source/vo/vo_flag_text.hpp"

static constexpr const char *names[] = {
    "VO_NLF_FLAG_LF", "VO_NLF_FLAG_CRLF", "VO_NLF_FLAG_CR", "VO_NLF_FLAG_NEL",
    "VO_NLF_FLAG_VT", "VO_NLF_FLAG_FF",   "VO_NLF_FLAG_LS", "VO_NLF_FLAG_PS",
};
static_assert(vo::namedBits(names) == VO_NLF_FLAGS_ALL);

voNlfFlags voNlfFlagsNormalize(voNlfFlags flags) { return flags & VO_NLF_FLAGS_ALL; }

voString *voNlfFlagsToString(voNlfFlags flags) { return vo::writeNamedFlags(flags, names); }

voNlfFlags voNlfFlagsFromString(voString *str) {
    VO_ASSERT(str);
    return vo::readNamedFlags(str, names);
}
