#include "tests/support.hpp"

#include "source/vo/vo_hash.hpp"

#include <algorithm>
#include <vector>

using test::str;

namespace {

Ref<voString> numbered(int64_t number) { return str(std::to_string(number)); }

Ref<voDict> dictOf(std::initializer_list<std::pair<const char *, const char *>> entries) {
    Ref dict(voDictCreate());
    for (auto [key, value] : entries)
        voDictSetStringKey(dict.edit(), str(key), voStringObj(str(value)));
    return dict;
}

} // namespace

TEST(Dict, KeepsTheOrderInWhichKeysCame) {
    for (int64_t count : {3, 8, 9, 16, 17, 1000}) {
        Ref dict(voDictCreate());
        for (int64_t i = count; i-- > 0;)
            voDictSetStringKey(dict.edit(), numbered(i), voStringObj(numbered(-i)));
        Ref again = str("again");
        voDictSetStringKey(dict.edit(), numbered(count - 1), voStringObj(again));
        ASSERT_EQ(voDictLength(dict), count);
        for (int64_t i = 0; i < count; ++i) {
            Ref key(voDictKeyAt(dict, i));
            EXPECT_EQ(test::text(voStringFrom(key)), std::to_string(count - 1 - i));
            Ref value(voDictStringKey(dict, voStringFrom(key)));
            EXPECT_EQ(test::text(voStringFrom(value)), i ? std::to_string(1 + i - count) : "again");
        }
        EXPECT_FALSE(voDictHasStringKey(dict, numbered(count)));
        EXPECT_EQ(voDictStringKey(dict, numbered(count)), nullptr);
    }
}

TEST(Dict, ComparesKeysAndValuesInTheirOrder) {
    Ref dict = dictOf({{"a", "1"}, {"b", "2"}});
    EXPECT_TRUE(voDictEquals(dict, dictOf({{"a", "1"}, {"b", "2"}})));
    EXPECT_LT(voDictCompare(dict, dictOf({{"a", "1"}, {"b", "3"}})), 0);
    EXPECT_GT(voDictCompare(dict, dictOf({{"a", "1"}})), 0);
    EXPECT_FALSE(voDictEquals(dict, dictOf({{"b", "2"}, {"a", "1"}})));
}

TEST(Dict, HoldsItselfAsItWas) {
    Ref dict = dictOf({{"a", "1"}});
    voDictSetStringKey(dict.edit(), str("a"), voDictObj(dict));
    Ref inner(voDictStringKey(dict, str("a")));
    Ref value(voDictStringKey(voDictFrom(inner), str("a")));
    EXPECT_EQ(test::text(voStringFrom(value)), "1");
}

TEST(Dict, RefusesAnIndexOutside) {
    Ref dict = dictOf({{"a", "1"}});
    EXPECT_ABORT((void)Ref(voDictKeyAt(dict, 1)), "source/vo/vo_dict.cpp",
                 "index >= 0 && index < dict->length()");
}

TEST(Dict, TakesAMillionKeys) {
    Ref dict(voDictCreate());
    Ref value = str("v");
    for (int64_t i = 0; i < 1'000'000; ++i)
        voDictSetStringKey(dict.edit(), numbered(i), voStringObj(value));
    EXPECT_EQ(voDictLength(dict), 1'000'000);
    EXPECT_TRUE(voDictHasStringKey(dict, numbered(999'999)));
    EXPECT_FALSE(voDictHasStringKey(dict, numbered(1'000'000)));
}

// Tables take the low bits, dictionaries tell keys apart by the high ones; regular keys must spread
// over both.
TEST(Hash, SpreadsRegularKeys) {
    for (int shift : {0, 24, 48}) {
        std::vector<int> low(4096), high(4096);
        for (uint64_t i = 0; i < 4096 * 8; ++i) {
            uint64_t key[] = {0, i << (shift % 32) << (shift / 2), 1};
            uint64_t hash = vo::hashBytes(key, sizeof(key));
            ++low[hash & 4095];
            ++high[hash >> 52];
        }
        EXPECT_LT(*std::max_element(low.begin(), low.end()), 40);
        EXPECT_LT(*std::max_element(high.begin(), high.end()), 40);
    }
}

TEST(Hash, TellsZerosOfDifferentLengthApart) {
    const char zeros[40] = {};
    std::vector<uint64_t> hashes;
    for (size_t size = 0; size <= sizeof(zeros); ++size)
        hashes.push_back(vo::hashBytes(zeros, size));
    std::sort(hashes.begin(), hashes.end());
    EXPECT_EQ(std::adjacent_find(hashes.begin(), hashes.end()), hashes.end());
}
