#include "tests/support.hpp"

using test::str;
using test::take;

namespace {

Ref<voFlagset> flags() {
    Ref set(voFlagsetCreate());
    voFlagsetSetFlagCstr(set.edit(), "HIGH", -1, 8);
    voFlagsetSetFlagCstr(set.edit(), "LOW", -1, 1);
    return set;
}

} // namespace

TEST(Enum, MapsNamesAndValues) {
    Ref en(voEnumCreate());
    voEnumSetEnumerantCstr(en.edit(), "zero", -1, 0);
    voEnumSetEnumerantCstr(en.edit(), "minus five", 5, -5);
    voEnumSetEnumerantCstr(en.edit(), "nil", -1, 0);
    EXPECT_EQ(voEnumParse(en, str("zero")), 0);
    EXPECT_EQ(voEnumParse(en, str("nil")), 0);
    EXPECT_EQ(voEnumParse(en, str("minus")), -5);
    for (const char *unknown : {"", "Zero", "zero ", "minus five"})
        EXPECT_EQ(voEnumParse(en, str(unknown)), -1);
    EXPECT_EQ(take(voEnumGenerate(en, 0)), "zero");
    EXPECT_EQ(take(voEnumGenerate(en, -5)), "minus");
    EXPECT_EQ(voEnumGenerate(en, 1), nullptr);
}

TEST(Enum, GivesAKnownNameANewValueForItsHolderOnly) {
    Ref en(voEnumCreate());
    voEnumSetEnumerantCstr(en.edit(), "a", -1, 1);
    voEnumSetEnumerantCstr(en.edit(), "b", -1, 2);
    Ref before(voEnumRetain(en));
    voEnumSetEnumerantCstr(en.edit(), "a", -1, 3);
    voEnumSetEnumerantCstr(en.edit(), "c", -1, 4);
    EXPECT_EQ(voEnumParse(en, str("a")), 3);
    EXPECT_EQ(voEnumParse(en, str("c")), 4);
    EXPECT_EQ(voEnumGenerate(en, 1), nullptr);
    EXPECT_EQ(voEnumParse(before, str("a")), 1);
    EXPECT_EQ(voEnumParse(en, str("b")), 2);
}

TEST(Flagset, WritesTheNamesInAscendingOrder) {
    Ref set = flags();
    EXPECT_TRUE(voFlagsetHasFlagCstr(set, "LOWER", 3));
    EXPECT_FALSE(voFlagsetHasFlagCstr(set, "LOWER", -1));
    EXPECT_EQ(take(voFlagsetGenerate(set, 0)), "");
    EXPECT_EQ(take(voFlagsetGenerate(set, 8)), "HIGH");
    EXPECT_EQ(take(voFlagsetGenerate(set, ~uint64_t{0})), "LOW|HIGH");
    EXPECT_ABORT(voFlagsetSetFlagCstr(set.edit(), "BOTH", -1, 9), "source/vo/vo_flagset.cpp",
                 "std::has_single_bit(bit)");
}

TEST(Flagset, ReadsNamesBetweenBlanks) {
    const struct {
        const char *text;
        uint64_t word;
    } cases[] = {
        {"", 0},
        {" \t", 0},
        {"LOW|HIGH", 9},
        {" HIGH |\tLOW ", 9},
        {"LOW|LOW", 1},
        {"LOW|low", 1 | VO_FLAG_UNKNOWN},
        {"LOW HIGH", VO_FLAG_UNKNOWN},
        {"LOW|", 1 | VO_FLAG_UNKNOWN},
        {"|", VO_FLAG_UNKNOWN},
    };
    for (auto &row : cases)
        EXPECT_EQ(voFlagsetParse(flags(), str(row.text)), row.word) << row.text;
}

TEST(NewlineFlags, ReadBackWhatTheyWrite) {
    EXPECT_EQ(take(voNlfFlagsToString(VO_NLF_FLAG_CRLF | VO_NLF_FLAG_PS)),
              "VO_NLF_FLAG_CRLF|VO_NLF_FLAG_PS");
    for (voNlfFlags flags = 0; flags < 1024; ++flags) {
        Ref text(voNlfFlagsToString(flags));
        EXPECT_EQ(voNlfFlagsFromString(text), voNlfFlagsNormalize(flags));
        EXPECT_EQ(voNlfFlagsNormalize(flags), flags & 255);
    }
    EXPECT_EQ(voNlfFlagsFromString(str("VO_NLF_FLAG_NEL|?")), 8 | VO_FLAG_UNKNOWN);
}
