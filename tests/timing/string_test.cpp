// Finding in strings takes time in proportion to the text, whatever is looked for.
#include "tests/timing/growth.hpp"

TEST(StringTiming, OfFindingIsLinear) {
    test::expectLinear(1'000'000, [](int64_t n) {
        std::u32string text(size_t(n), U'a'), wanted(size_t(n) / 10, U'a');
        wanted.back() = U'b';
        Ref haystack = test::str(text), needle = test::str(wanted);
        return test::secondsOf([&] {
            EXPECT_EQ(voStringFindChars(haystack, 0, voStringBacking(needle), n / 10), -1);
        });
    });
}
