#include "xml/xml_value.h"

#include "source/vo/vo_object.hpp"
#include "source/xml/base/xml_skip.hpp"

namespace {

const uint32_t *beginOf(voString *string) { return voStringBacking(string); }

const uint32_t *endOf(voString *string) { return beginOf(string) + voStringLength(string); }

/// Whether the string is not empty and `skip` takes all of it.
template <class Skip> bool isOne(voString *string, Skip skip) {
    return voStringLength(string) > 0 && skip(beginOf(string), endOf(string)) == endOf(string);
}

/// Whether the characters `token` occur at or after `from`.
template <size_t size>
bool contains(voString *string, int64_t from, const uint32_t (&token)[size]) {
    return voStringFindChars(string, from, token, size) >= 0;
}

} // namespace

int xmlValueNameOk(voString *name) {
    VO_ASSERT(name);
    return isOne(name, xml::skipName<uint32_t>);
}

int xmlValueProcessingInstructionValueOk(voString *value) {
    VO_ASSERT(value);
    const uint32_t *targetEnd = xml::skipName(beginOf(value), endOf(value));
    if (targetEnd == beginOf(value)) return 0;
    const uint32_t *data = xml::skipS(targetEnd, endOf(value));
    return !contains(value, data - beginOf(value), {'?', '>'});
}

int xmlValueCommentOk(voString *commentText) {
    VO_ASSERT(commentText);
    int64_t length = voStringLength(commentText);
    return length > 0 && voStringCharAt(commentText, 0) != '-' &&
           voStringCharAt(commentText, length - 1) != '-' && !contains(commentText, 0, {'-', '-'});
}

int xmlValueVersionNumOk(voString *versionNum) {
    VO_ASSERT(versionNum);
    return isOne(versionNum, xml::skipVersionNum<uint32_t>);
}

int xmlValueCdataOk(voString *value) { return !contains(value, 0, {']', ']', '>'}); }

int xmlValueTextOk(voString *text) {
    VO_ASSERT(text);
    const uint32_t *end = endOf(text);
    for (const uint32_t *at = beginOf(text);;) {
        at = xml::findAny(at, end, '<', '&', '&');
        if (at == end) return 1;
        const uint32_t *reference = xml::skipReference(at, end);
        if (reference == at) return 0; // a "<" begins none either
        at = reference;
    }
}
