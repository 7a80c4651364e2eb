/** @file
 *  Strings of Unicode code points.
 *
 *  A string is a sequence of 32-bit code points, stored one behind another. Any 32-bit value may
 *  stand in it; only the conversions to a character set refuse what is no Unicode scalar value.
 *  Lengths, counts and indexes are in code points, indexes from 0. Strings compare by code point,
 *  then by length.
 *
 *  `const uint32_t *chars, int64_t count` is a run of code points; it may be null when `count` is
 *  0, and it may lie inside the very string that is changed. A negative count, and a string that
 *  would grow beyond the address space, abort.
 *
 *  `const char *cstr, int64_t length` is a byte string of ASCII characters; -1 stands for up to its
 *  NUL. Another length below 0 and a byte above 127 abort. */
#ifndef VO_VO_STRING_H
#define VO_VO_STRING_H

#include "vo/vo_buffer.h"

VO_BEGIN_DECLS

/** @name Common operations
 *  See vo/vo_object.h. @{ */
VO_API voSort *voStringSort(void);
VO_API voString *voStringRetain(voString *obj);
VO_API void voStringRelease(voString *obj);
VO_API voObj *voStringObj(voString *obj);
VO_API voString *voStringFrom(voObj *obj);
VO_NEW voString *voStringToString(voString *obj);
VO_API int64_t voStringCompare(voString *a, voString *b);
VO_API int voStringEquals(voString *a, voString *b);
VO_NEW voString *voStringCreateFrom(voString *source);
/** @} */

/** @name Making strings @{ */

/** A new empty string. */
VO_NEW voString *voStringCreate(void);
/** The characters of a byte string, see above. */
VO_NEW voString *voStringCreateFromCstr(const char *cstr, int64_t length);
/** A copy of a run of code points. */
VO_NEW voString *voStringCreateFromCharsCopy(const uint32_t *chars, int64_t count);

/** Turns a block of voMemAllocN() into the string of its first `count` code points, without a
 *  copy. The block must have room for that many, and belongs to the string from now on. */
VO_NEW voString *voStringCreateFromCharsUse(uint32_t *chars, int64_t count);

/** The first `count` code points of `str`, which must have that many. */
VO_NEW voString *voStringCreateFromLeading(voString *str, int64_t count);

/** The formatted text; see voStringAppendFormatCstr(). */
VO_NEW voString *voStringCreateFromFormatCstr(const char *format, int64_t length, ...);

/** The string that well-formed UTF-8 encodes, or null when `bytes` are ill-formed (overlong forms,
 *  surrogates, values above U+10FFFF, truncated characters). A byte-order mark is kept. A `count`
 *  of -1 stands for up to the NUL. */
VO_NEW voString *voStringTryCreateFromUtf8(const char *bytes, int64_t count);

/** The string as UTF-8 without a byte-order mark and without a NUL, or null when it holds a
 *  surrogate or a value above U+10FFFF. */
VO_NEW voBuffer *voStringTryToUtf8(voString *str);
/** @} */

/** @name Reading @{ */

/** The number of code points. */
VO_API int64_t voStringLength(voString *str);

/** The code points, one behind another and not terminated. Valid while the caller holds the string
 *  and nobody changes it through that reference. */
VO_API const uint32_t *voStringBacking(voString *str);

/** The code point at `index`; an index outside the string aborts. */
VO_API uint32_t voStringCharAt(voString *str, int64_t index);

/** 1 when the string consists of just these code points, or begins with them. */
VO_API int voStringEqualsChars(voString *str, const uint32_t *chars, int64_t count);
VO_API int voStringBeginsWithChars(voString *str, const uint32_t *chars, int64_t count);

/** The index of the first `ch` at or after `from`, or -1. `from` may lie at or behind the end,
 *  where nothing is found; a negative one aborts. */
VO_API int64_t voStringFindChar(voString *str, int64_t from, uint32_t ch);

/** The index of the first occurrence of `chars` that begins at or after `from`, or -1; `from` as in
 *  voStringFindChar(). No code points (`count` 0) are found at `from` itself, up to the end of the
 *  string. The time is linear in the lengths of both. */
VO_API int64_t voStringFindChars(voString *str, int64_t from, const uint32_t *chars, int64_t count);
/** @} */

/** @name Changing @{ */

/** Appends another string, which may be the string itself; a code point; a run of code points; or
 *  the characters of a byte string. */
VO_API void voStringAppend(voString **str, voString *other);
VO_API void voStringAppendChar(voString **str, uint32_t ch);
VO_API void voStringAppendChars(voString **str, const uint32_t *chars, int64_t count);
VO_API void voStringAppendCstr(voString **str, const char *cstr, int64_t length);

/** Puts `ch` in front. Takes time in proportion to the length. */
VO_API void voStringPrependChar(voString **str, uint32_t ch);

/** Appends `format`, a byte string like `cstr` above, with its placeholders replaced:
 *
 *      %~s   the next argument, a non-null voString *, as it is. The call takes over the caller's
 *            reference to it: results of other functions can be passed straight on
 *      %%    a percent sign
 *
 *  Any other placeholder aborts. */
VO_API void voStringAppendFormatCstr(voString **str, const char *format, int64_t length, ...);

/** Removes the first `count` code points; the string must have that many. Takes time in proportion
 *  to what is left. */
VO_API void voStringDelLeading(voString **str, int64_t count);
/** @} */

VO_END_DECLS

#endif
