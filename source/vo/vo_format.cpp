#include "vo/vo_format.h"

#include "source/vo/vo_cstr.hpp"
#include "source/vo/vo_format.hpp"
#include "source/vo/vo_int.hpp"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace vo {

void appendFormat(voString **str, const char *format, int64_t length, va_list args) {
    const char *end = format + cstrLength(format, length);
    for (const char *at = format; at < end;) {
        const char *percent = std::find(at, end, '%');
        voStringAppendCstr(str, at, percent - at);
        if (percent == end) return;
        std::string_view placeholder(percent, size_t(end - percent));
        if (placeholder.starts_with("%%")) {
            voStringAppendChar(str, '%');
            at = percent + 2;
        } else {
            VO_ASSERT(placeholder.starts_with("%~s"));
            Ref str_arg(va_arg(args, voString *));
            VO_ASSERT(str_arg);
            voStringAppend(str, str_arg);
            at = percent + 3;
        }
    }
}

void appendInt(voString **str, int64_t value) {
    char digits[24];
    char *end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    voStringAppendCstr(str, digits, end - digits);
}

/// The value of a digit, or 36 for any other character.
static int64_t digitValue(uint32_t ch) {
    if (ch >= '0' && ch <= '9') return ch - '0';
    uint32_t letter = ch | 0x20;
    return letter >= 'a' && letter <= 'z' ? letter - 'a' + 10 : 36;
}

} // namespace vo

int voFormatTryDecodeIntChars(const uint32_t *chars, int64_t count, int64_t radix, int64_t *value,
                              int64_t *used) {
    VO_ASSERT(count >= 0);
    VO_ASSERT(chars || !count);
    VO_ASSERT(radix >= 2 && radix <= 36);
    VO_ASSERT(value);
    VO_ASSERT(used);
    int64_t number = 0;
    int64_t at = 0;
    for (; at < count; ++at) {
        int64_t digit = vo::digitValue(chars[at]);
        if (digit >= radix) break;
        if (!VO_INT_MUL_OK(number, radix) || !VO_INT_ADD_OK(number * radix, digit)) return 0;
        number = number * radix + digit;
    }
    if (!at) return 0;
    *value = number;
    *used = at;
    return 1;
}
