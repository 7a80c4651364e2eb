// The families of character sets, each a way to UTF-8 and back.
#pragma once

#include "source/vo/vo_buffer_builder.hpp"
#include "vo/vo_charset.h"

namespace vo {

/// Appends the bytes' text as UTF-8. False when they are ill-formed, unless `lenient`: then as
/// VO_CHARSET_FLAG_SNIFF says, and never false. Marks have no part in this.
using Decode = bool(voCharset charset, Bytes bytes, bool lenient, BufferBuilder &out);

/// Appends a text in the character set; `utf8` is well-formed. False when a character is missing.
using Encode = bool(voCharset charset, Bytes utf8, BufferBuilder &out);

Decode decodeUtf8Text; ///< UTF-8
Encode encodeUtf8Text;
Decode decodeUnits; ///< UTF-16 and UTF-32 in a given byte order
Encode encodeUnits;
Decode decodeBytes; ///< ids 0 to 35, one byte a character, ASCII in the lower half
Encode encodeBytes;
Decode decodeMultibyte; ///< ids 36 to 43
Encode encodeMultibyte;

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
