#include "source/xml/base/xml_skip.hpp"

#include "source/vo/vo_object.hpp"

// A macro, so that the abort text names this file and the condition.
#define XML_CHECK_RUN() (VO_ASSERT(length >= 0), VO_ASSERT(length == 0 || chs))

int64_t xml___SkipS(const uint32_t *chs, int64_t length) {
    XML_CHECK_RUN();
    return xml::skipS(chs, chs + length) - chs;
}

int64_t xml___SkipName(const uint32_t *chs, int64_t length) {
    XML_CHECK_RUN();
    return xml::skipName(chs, chs + length) - chs;
}

int64_t xml___SkipNames(const uint32_t *chs, int64_t length) {
    XML_CHECK_RUN();
    return xml::skipList(chs, chs + length, xml::skipName<uint32_t>) - chs;
}

int64_t xml___SkipNmtoken(const uint32_t *chs, int64_t length) {
    XML_CHECK_RUN();
    return xml::skipNmtoken(chs, chs + length) - chs;
}

int64_t xml___SkipNmtokens(const uint32_t *chs, int64_t length) {
    XML_CHECK_RUN();
    return xml::skipList(chs, chs + length, xml::skipNmtoken<uint32_t>) - chs;
}

int64_t xml___SkipEntityRef(const uint32_t *chs, int64_t length) {
    XML_CHECK_RUN();
    return xml::skipEntityRef(chs, chs + length) - chs;
}

int64_t xml___SkipCharRef(const uint32_t *chs, int64_t length, uint32_t *value) {
    XML_CHECK_RUN();
    uint32_t number = 0;
    int64_t count = xml::skipCharRef(chs, chs + length, number) - chs;
    if (value) *value = number;
    return count;
}

int64_t xml___SkipReference(const uint32_t *chs, int64_t length) {
    XML_CHECK_RUN();
    return xml::skipReference(chs, chs + length) - chs;
}

int64_t xml___SkipAttValue(const uint32_t *chs, int64_t length) {
    XML_CHECK_RUN();
    return xml::skipAttValue(chs, chs + length) - chs;
}

int64_t xml___SkipVersionNum(const uint32_t *chs, int64_t length) {
    XML_CHECK_RUN();
    return xml::skipVersionNum(chs, chs + length) - chs;
}

int64_t xml___SkipEq(const uint32_t *chs, int64_t length) {
    XML_CHECK_RUN();
    return xml::skipEq(chs, chs + length) - chs;
}
