#include "tests/support.hpp"

using test::str;
using test::take;

namespace {

constexpr const char *unit = "source/vo/vo_store.cpp";

Ref<voStore> storeOf(const char *key, const char *value) {
    Ref store(voStoreCreate());
    voStoreSetValueCstr(store.edit(), key, -1, str(value));
    return store;
}

} // namespace

TEST(Store, HoldsValuesAndStoresUnderKeys) {
    Ref store = storeOf("value", "1");
    voStoreSetStoreCstr(store.edit(), "sub", -1, storeOf("inner", "2"));
    EXPECT_EQ(take(voStoreValueCstr(store, "value", -1)), "1");
    EXPECT_EQ(take(voStoreValueCstr(store, "values", 5)), "1");
    Ref sub(voStoreStoreCstr(store, "sub", -1));
    EXPECT_EQ(take(voStoreValueCstr(sub, "inner", -1)), "2");
    for (const char *key : {"sub", "absent"})
        EXPECT_EQ(voStoreValueCstr(store, key, -1), nullptr);
    for (const char *key : {"value", "absent"})
        EXPECT_EQ(voStoreStoreCstr(store, key, -1), nullptr);
}

TEST(Store, ReplacesAnEntryInItsPlace) {
    Ref store = storeOf("a", "1");
    voStoreSetValueCstr(store.edit(), "b", -1, str("2"));
    voStoreSetStoreCstr(store.edit(), "a", -1, storeOf("inner", "3"));
    ASSERT_EQ(voStoreLength(store), 2);
    Ref first(voStoreStoreAt(store, 0));
    EXPECT_TRUE(voStoreEquals(first, storeOf("inner", "3")));
    EXPECT_EQ(voStoreStoreAt(store, 1), nullptr);
    EXPECT_EQ(voStoreValueCstr(store, "a", -1), nullptr);
}

TEST(Store, IsAnArrayToo) {
    Ref array(voStoreCreateArray());
    for (const char *value : {"1", "2"})
        voStoreAppendStore(array.edit(), storeOf("v", value));
    ASSERT_EQ(voStoreLength(array), 2);
    Ref second(voStoreStoreAt(array, 1));
    EXPECT_EQ(take(voStoreValueCstr(second, "v", -1)), "2");
    EXPECT_EQ(voStoreValueCstr(array, "v", -1), nullptr);
    EXPECT_EQ(voStoreStoreCstr(array, "v", -1), nullptr);
    EXPECT_ABORT((void)Ref(voStoreStoreAt(array, 2)), unit,
                 "index >= 0 && index < store->length()");
}

TEST(Store, RefusesEntriesOfTheWrongKind) {
    Ref array(voStoreCreateArray()), keyed(voStoreCreate());
    EXPECT_ABORT(voStoreSetValueCstr(array.edit(), "k", -1, str("v")), unit, "!(*store)->isArray");
    EXPECT_ABORT(voStoreSetStoreCstr(array.edit(), "k", -1, keyed), unit, "!(*store)->isArray");
    EXPECT_ABORT(voStoreAppendStore(keyed.edit(), array), unit, "(*array)->isArray");
}

TEST(Store, HoldsItselfAsItWas) {
    Ref keyed = storeOf("a", "1");
    voStoreSetStoreCstr(keyed.edit(), "self", -1, keyed);
    Ref inner(voStoreStoreCstr(keyed, "self", -1));
    EXPECT_TRUE(voStoreEquals(inner, storeOf("a", "1")));
    Ref array(voStoreCreateArray());
    voStoreAppendStore(array.edit(), array);
    Ref element(voStoreStoreAt(array, 0));
    EXPECT_EQ(voStoreLength(element), 0);
}

TEST(Store, ComparesByKindAndContent) {
    Ref array(voStoreCreateArray()), keyed(voStoreCreate());
    EXPECT_LT(voStoreCompare(keyed, array), 0);
    Ref outerA(voStoreCreateArray()), outerB(voStoreCreateArray());
    voStoreAppendStore(outerA.edit(), keyed);
    voStoreAppendStore(outerB.edit(), array);
    EXPECT_LT(voStoreCompare(outerA, outerB), 0);
    EXPECT_LT(voStoreCompare(storeOf("a", "1"), storeOf("a", "2")), 0);
    EXPECT_TRUE(voStoreEquals(storeOf("a", "1"), storeOf("a", "1")));
}
