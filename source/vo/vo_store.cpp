#include "vo/vo_store.h"

#include "source/vo/vo_compare.hpp"
#include "source/vo/vo_table.hpp"
#include "vo/vo_string.h"

using namespace vo;

VO_OBJECT(voStore, voStore, vo___sort_voStore, vo___StoreFreeFunc, nullptr, store,
          compareContainers);

/// The value under a key, if it is of the sort `sort`, as a new reference.
static voObj *lookUp(voStore *store, const char *key, int64_t length, voSort *sort) {
    Ref name(voStringCreateFromCstr(key, length));
    int64_t index = store->find(name);
    if (index < 0 || sortOf(store->value(index)) != sort) return nullptr;
    return retained(store->value(index));
}

/// `value` must have a holder other than the store.
static void set(voStore **store, const char *key, int64_t length, voObj *value) {
    Ref name(voStringCreateFromCstr(key, length));
    VO_EDIT(store)->set(name, value);
}

voStore *voStoreCreate(void) { return createTable<voStore>(voStoreSort(), false); }

voStore *voStoreCreateArray(void) { return createTable<voStore>(voStoreSort(), true); }

void voStoreSetValueCstr(voStore **store, const char *key, int64_t length, voString *value) {
    VO_ASSERT_REF(store);
    VO_ASSERT(!(*store)->isArray);
    VO_ASSERT(value);
    Ref held(retained(value));
    set(store, key, length, obj<voString>(held));
}

voString *voStoreValueCstr(voStore *store, const char *key, int64_t length) {
    return voStringFrom(lookUp(VO_READ(store), key, length, voStringSort()));
}

void voStoreSetStoreCstr(voStore **store, const char *key, int64_t length, voStore *sub) {
    VO_ASSERT_REF(store);
    VO_ASSERT(!(*store)->isArray);
    VO_ASSERT(sub);
    Ref held(retained(sub));
    set(store, key, length, obj<voStore>(held));
}

voStore *voStoreStoreCstr(voStore *store, const char *key, int64_t length) {
    return voStoreFrom(lookUp(VO_READ(store), key, length, voStoreSort()));
}

void voStoreAppendStore(voStore **array, voStore *sub) {
    VO_ASSERT_REF(array);
    VO_ASSERT((*array)->isArray);
    VO_ASSERT(sub);
    Ref held(retained(sub));
    voVectorAppendObj(&VO_EDIT(array)->items, obj<voStore>(held));
}

int64_t voStoreLength(voStore *store) { return VO_READ(store)->length(); }

voStore *voStoreStoreAt(voStore *store, int64_t index) {
    VO_ASSERT(store);
    VO_ASSERT(index >= 0 && index < store->length());
    voObj *entry = store->value(index);
    return sortOf(entry) == voStoreSort() ? retained(voStoreFrom(entry)) : nullptr;
}
