// Scanners: how much of a run of text one lexical production of XML takes.
//
// Each is written once over the code unit: 32-bit code points, which strings hold, and UTF-8
// bytes, which the decoder reads. A scanner gives the place after the production, or `at` itself
// when the run does not begin with it. It never looks outside the run.
#pragma once

#include "source/vo/vo_utf.hpp"
#include "source/xml/base/xml_char.hpp"
#include "source/xml/base/xml_find.hpp"

#include <cstdint>

extern "C" {
// The same over code points, as counts: 0 when the run does not begin with the production. A
// negative length aborts, and so does a null run that is not empty.
int64_t xml___SkipS(const uint32_t *chs, int64_t length);
int64_t xml___SkipName(const uint32_t *chs, int64_t length);
int64_t xml___SkipNames(const uint32_t *chs, int64_t length);
int64_t xml___SkipNmtoken(const uint32_t *chs, int64_t length);
int64_t xml___SkipNmtokens(const uint32_t *chs, int64_t length);
int64_t xml___SkipEntityRef(const uint32_t *chs, int64_t length);
/// `value`, unless null, receives the code point; it means nothing when the result is 0.
int64_t xml___SkipCharRef(const uint32_t *chs, int64_t length, uint32_t *value);
int64_t xml___SkipReference(const uint32_t *chs, int64_t length);
int64_t xml___SkipAttValue(const uint32_t *chs, int64_t length);
int64_t xml___SkipVersionNum(const uint32_t *chs, int64_t length);
int64_t xml___SkipEq(const uint32_t *chs, int64_t length);
}

namespace xml {

/// Reads the code point at `at`, which must be inside the run, and steps over it.
inline uint32_t nextChar(const uint32_t *&at, const uint32_t *) { return *at++; }
inline uint32_t nextChar(const uint8_t *&at, const uint8_t *end) { return vo::decodeUtf8(at, end); }

/// The place of the first character for which `accepts` is false.
template <class Unit, class Accepts>
const Unit *skipWhile(const Unit *at, const Unit *end, Accepts accepts) {
    while (at < end) {
        const Unit *next = at;
        if (!accepts(nextChar(next, end))) break;
        at = next;
    }
    return at;
}

template <class Unit> const Unit *skipS(const Unit *at, const Unit *end) {
    while (at < end && isSpace(*at))
        ++at;
    return at;
}

template <class Unit> const Unit *skipNmtoken(const Unit *at, const Unit *end) {
    while (at < end && *at < 128 && asciiNameClasses[*at] & nameBit)
        ++at;
    if (at == end || *at < 128) return at;
    return skipWhile(at, end, isName);
}

template <class Unit> const Unit *skipName(const Unit *at, const Unit *end) {
    if (at == end) return at;
    const Unit *next = at;
    return isNameStart(nextChar(next, end)) ? skipNmtoken(next, end) : at;
}

/// `token`s with white space between them. Trailing white space is left.
template <class Unit, class Token>
const Unit *skipList(const Unit *at, const Unit *end, Token token) {
    const Unit *last = token(at, end);
    if (last == at) return at;
    for (;;) {
        const Unit *begin = skipS(last, end);
        const Unit *next = begin == last ? last : token(begin, end);
        if (next == begin) return last;
        last = next;
    }
}

template <class Unit> const Unit *skipEntityRef(const Unit *at, const Unit *end) {
    if (at == end || *at != '&') return at;
    const Unit *name = skipName(at + 1, end);
    return name > at + 1 && name < end && *name == ';' ? name + 1 : at;
}

/// A character reference from U+0001 to U+10FFFE, whose code point it stores into `value`.
template <class Unit> const Unit *skipCharRef(const Unit *at, const Unit *end, uint32_t &value) {
    if (end - at < 3 || at[0] != '&' || at[1] != '#') return at;
    const bool hex = (at[2] & ~Unit{0x20}) == 'X';
    const Unit *digit = at + (hex ? 3 : 2);
    const Unit *first = digit;
    uint64_t number = 0; // saturates above every code point
    for (; digit < end && (hex ? isHexDigit(*digit) : isDigit(*digit)); ++digit) {
        uint32_t weight = isDigit(*digit) ? *digit - '0' : (*digit | 0x20U) - 'a' + 10;
        if (number <= 0x10FFFF) number = number * (hex ? 16 : 10) + weight;
    }
    if (digit == first || number < 1 || number > 0x10FFFE) return at;
    value = uint32_t(number);
    return digit < end && *digit == ';' ? digit + 1 : at;
}

template <class Unit> const Unit *skipReference(const Unit *at, const Unit *end) {
    uint32_t ignored;
    const Unit *next = skipEntityRef(at, end);
    return next > at ? next : skipCharRef(at, end, ignored);
}

/// Both quotes included.
template <class Unit> const Unit *skipAttValue(const Unit *at, const Unit *end) {
    if (end - at < 2 || (*at != '"' && *at != '\'')) return at;
    const Unit quote = *at;
    const Unit *next = findAny(at + 1, end, char(quote), '<', '&');
    while (next < end && *next == '&') {
        const Unit *reference = skipReference(next, end);
        if (reference == next) return at;
        next = findAny(reference, end, char(quote), '<', '&');
    }
    return next < end && *next == quote ? next + 1 : at;
}

/// Character data with entity references, up to a "<", to an "&" that begins no entity reference,
/// or to the end.
template <class Unit> const Unit *skipCharData(const Unit *at, const Unit *end) {
    for (;;) {
        at = findAny(at, end, '<', '&', '&');
        if (at == end || *at == '<') return at;
        const Unit *reference = skipEntityRef(at, end);
        if (reference == at) return at;
        at = reference;
    }
}

template <class Unit> const Unit *skipVersionNum(const Unit *at, const Unit *end) {
    if (end - at < 3 || at[0] != '1' || at[1] != '.' || !isDigit(at[2])) return at;
    const Unit *next = at + 3;
    while (next < end && isDigit(*next))
        ++next;
    return next;
}

template <class Unit> const Unit *skipEq(const Unit *at, const Unit *end) {
    const Unit *next = skipS(at, end);
    return next < end && *next == '=' ? skipS(next + 1, end) : at;
}

} // namespace xml
