#include "vo/vo_flagset.h"

#include "source/vo/vo_flag_text.hpp"
#include "source/vo/vo_names.hpp"

using namespace vo;

VO_OBJECT(voFlagset, voFlagset, vo___sort_voFlagset, vo___FlagsetFreeFunc, nullptr, flagset);

voFlagset *voFlagsetCreate(void) { return createNames<voFlagset>(voFlagsetSort()); }

int voFlagsetHasFlagCstr(voFlagset *flagset, const char *name, int64_t length) {
    VO_ASSERT(flagset);
    Ref key(voStringCreateFromCstr(name, length));
    return flagset->find(key) != nullptr;
}

void voFlagsetSetFlagCstr(voFlagset **flagset, const char *name, int64_t length, uint64_t bit) {
    VO_ASSERT_REF(flagset);
    VO_ASSERT(std::has_single_bit(bit));
    VO_EDIT(flagset)->set(name, length, bit);
}

uint64_t voFlagsetParse(voFlagset *flagset, voString *str) {
    VO_ASSERT(flagset);
    VO_ASSERT(str);
    return readFlags(str, [flagset](const uint32_t *chars, int64_t count) -> uint64_t {
        Ref name(voStringCreateFromCharsCopy(chars, count));
        const uint64_t *bit = flagset->find(name);
        return bit ? *bit : 0;
    });
}

voString *voFlagsetGenerate(voFlagset *flagset, uint64_t word) {
    VO_ASSERT(flagset);
    return writeFlags(word, [flagset](voString **text, uint64_t bit) {
        if (Ref name(flagset->nameOf(bit)); name) voStringAppend(text, name);
    });
}
