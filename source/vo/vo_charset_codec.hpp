// What converts between the character sets and UTF-8.
#pragma once

#include "source/vo/vo_buffer_builder.hpp"
#include "vo/vo_charset.h"

#include <string_view>

namespace vo {

/// Appends the bytes' text as UTF-8. False when they are ill-formed, unless `lenient`: then as
/// VO_CHARSET_FLAG_SNIFF says, and never false. Marks have no part in this.
using Decode = bool(voCharset charset, Bytes bytes, bool lenient, BufferBuilder &out);

/// Appends a text in the character set; `utf8` is well-formed. False when a character is missing.
using Encode = bool(voCharset charset, Bytes utf8, BufferBuilder &out);

/// Character sets that are converted in the same way.
struct Family {
    Decode *decode;
    Encode *encode;
};

namespace families {
extern const Family singleByte; ///< One byte a character, ASCII in the lower half.
extern const Family eastAsian;
extern const Family utf8, utf16Be, utf16Le, utf32Be, utf32Le;
} // namespace families

/// All that is known about a character set.
struct Charset {
    std::string_view preferred; ///< Its name,
    const Family &family;
    const char *converter;    ///< what the C library calls it, null where it has no part,
    std::string_view aliases; ///< and its other names, separated by one blank each.
};

const Charset &charsetOf(voCharset id);

/// U+FFFD in UTF-8.
inline constexpr uint8_t replacement[] = {0xEF, 0xBF, 0xBD};

bool validUtf8(Bytes bytes);

/// What stands at `at`: the length of a well-formed character, 0 for the beginning of one that
/// `end` cuts off, or minus the number of bytes that are ill-formed together, which are as many as
/// could still have begun a character.
int utf8SequenceAt(const uint8_t *at, const uint8_t *end);

/// The string that well-formed UTF-8 stands for.
voString *stringFromUtf8(Bytes utf8);

} // namespace vo
