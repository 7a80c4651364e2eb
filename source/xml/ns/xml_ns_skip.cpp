#include "source/xml/ns/xml_ns_skip.hpp"

#include "source/vo/vo_object.hpp"
#include "source/xml/base/xml_char.hpp"

int64_t xml___NsSkipNcname(const uint32_t *chs, int64_t length) {
    VO_ASSERT(length >= 0);
    VO_ASSERT(length == 0 || chs);
    if (length == 0 || chs[0] == ':' || !xml::isNameStart(chs[0])) return 0;
    int64_t i = 1;
    while (i < length && chs[i] != ':' && xml::isName(chs[i]))
        ++i;
    return i;
}
