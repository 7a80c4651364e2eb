#include "vo/vo_dict.h"

#include "source/vo/vo_compare.hpp"
#include "source/vo/vo_table.hpp"

using namespace vo;

VO_OBJECT(voDict, voDict, vo___sort_voDict, vo___DictFreeFunc, nullptr, dict, compareContainers);

voDict *voDictCreate(void) { return createTable<voDict>(voDictSort(), false); }

void voDictSetStringKey(voDict **dict, voString *key, voObj *value) {
    VO_ASSERT_REF(dict);
    VO_ASSERT(key);
    VO_ASSERT(value);
    Ref held(retained(value));
    VO_EDIT(dict)->set(key, held);
}

voObj *voDictStringKey(voDict *dict, voString *key) {
    VO_ASSERT(dict);
    VO_ASSERT(key);
    int64_t index = dict->find(key);
    return index < 0 ? nullptr : retained(dict->value(index));
}

int voDictHasStringKey(voDict *dict, voString *key) {
    VO_ASSERT(dict);
    VO_ASSERT(key);
    return dict->find(key) >= 0;
}

int64_t voDictLength(voDict *dict) { return VO_READ(dict)->length(); }

voObj *voDictKeyAt(voDict *dict, int64_t index) {
    VO_ASSERT(dict);
    VO_ASSERT(index >= 0 && index < dict->length());
    return retained(obj(dict->key(index)));
}
