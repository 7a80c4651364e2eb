#include "vo/vo_enum.h"

#include "source/vo/vo_names.hpp"

using namespace vo;

VO_OBJECT(voEnum, voEnum, vo___sort_voEnum, vo___EnumFreeFunc, nullptr, en);

voEnum *voEnumCreate(void) { return createNames<voEnum>(voEnumSort()); }

void voEnumSetEnumerantCstr(voEnum **en, const char *name, int64_t length, int64_t value) {
    VO_EDIT(en)->set(name, length, uint64_t(value));
}

int64_t voEnumParse(voEnum *en, voString *str) {
    VO_ASSERT(en);
    VO_ASSERT(str);
    const uint64_t *value = en->find(str);
    return value ? int64_t(*value) : -1;
}

voString *voEnumGenerate(voEnum *en, int64_t value) { return VO_READ(en)->nameOf(uint64_t(value)); }
