#include "vo/vo_newline.h"

#include "source/vo/vo_flag_text.hpp"

static constexpr const char *names[] = {
    "VO_NLF_FLAG_LF", "VO_NLF_FLAG_CRLF", "VO_NLF_FLAG_CR", "VO_NLF_FLAG_NEL",
    "VO_NLF_FLAG_VT", "VO_NLF_FLAG_FF",   "VO_NLF_FLAG_LS", "VO_NLF_FLAG_PS",
};
static_assert(VO_NLF_FLAG_PS == uint64_t{1} << (std::size(names) - 1));

voNlfFlags voNlfFlagsNormalize(voNlfFlags flags) { return flags & (2 * VO_NLF_FLAG_PS - 1); }

voString *voNlfFlagsToString(voNlfFlags flags) { return vo::writeNamedFlags(flags, names); }

voNlfFlags voNlfFlagsFromString(voString *str) {
    VO_ASSERT(str);
    return vo::readNamedFlags(str, names);
}
