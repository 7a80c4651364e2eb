#include "tests/support.hpp"

using test::str;
using test::text;

namespace {

constexpr const char *unit = "source/vo/vo_string.cpp";

const uint32_t *chars(const char32_t *literal) {
    return reinterpret_cast<const uint32_t *>(literal);
}

int64_t find(std::string_view in, int64_t from, std::u32string_view what) {
    return voStringFindChars(str(in), from, chars(what.data()), int64_t(what.size()));
}

/// A string made with the placeholders of `format`, which takes over the reference.
std::string formatted(const char *format, int64_t length, Ref<voString> arg = {}) {
    return test::take(voStringCreateFromFormatCstr(format, length, arg.take()));
}

} // namespace

TEST(String, IsMadeFromAByteStringUpToItsNulOrALength) {
    EXPECT_EQ(test::take(voStringCreateFromCstr("abc", -1)), "abc");
    EXPECT_EQ(test::take(voStringCreateFromCstr("abc", 2)), "ab");
    EXPECT_EQ(test::take(voStringCreateFromCstr("a\0c", 3)), std::string("a\0c", 3));
    EXPECT_ABORT((void)Ref(voStringCreateFromCstr("\xC3\xA4", -1)), unit, "isAscii(cstr, length)");
    EXPECT_ABORT((void)Ref(voStringCreateFromCstr("a", -2)), "source/vo/vo_cstr.hpp",
                 "length >= -1");
}

TEST(String, ComparesByCodePointThenByLength) {
    const std::u32string_view ascending[] = {U"", U"a", U"a\x01", U"ab", U"b", U"\x80", U"\xFFFF0"};
    for (auto &a : ascending)
        for (auto &b : ascending) {
            int64_t order = voStringCompare(str(a), str(b));
            EXPECT_EQ(order < 0, &a < &b);
            EXPECT_EQ(order > 0, &a > &b);
            EXPECT_EQ(voStringEquals(str(a), str(b)), &a == &b);
        }
}

TEST(String, KnowsItsBeginning) {
    Ref abc = str("abc");
    EXPECT_TRUE(voStringBeginsWithChars(abc, nullptr, 0));
    EXPECT_TRUE(voStringBeginsWithChars(abc, chars(U"abc"), 3));
    EXPECT_FALSE(voStringBeginsWithChars(abc, chars(U"abcd"), 4));
    EXPECT_TRUE(voStringEqualsChars(abc, chars(U"abc"), 3));
    EXPECT_FALSE(voStringEqualsChars(abc, chars(U"ab"), 2));
    EXPECT_ABORT(voStringEqualsChars(abc, chars(U"abc"), -1), unit, "count >= 0");
}

TEST(String, FindsAtTheEdges) {
    EXPECT_EQ(voStringFindChar(str("abca"), 0, 'a'), 0);
    EXPECT_EQ(voStringFindChar(str("abca"), 1, 'a'), 3);
    for (int64_t from : {4, 5, 1000})
        EXPECT_EQ(voStringFindChar(str("abca"), from, 'a'), -1);
    EXPECT_EQ(find("abcabd", 0, U"abd"), 3);
    EXPECT_EQ(find("abcabd", 4, U"abd"), -1);
    EXPECT_EQ(find("ab", 0, U"abd"), -1);
    EXPECT_EQ(find("ab", 2, U""), 2);
    EXPECT_EQ(find("ab", 3, U""), -1);
    EXPECT_ABORT(voStringFindChar(str("a"), -1, 'a'), unit, "from >= 0");
}

TEST(String, FindsWhatTheStandardLibraryFinds) {
    for (uint32_t haystackBits = 0; haystackBits < 1024; ++haystackBits)
        for (uint32_t needleBits = 8; needleBits < 32; ++needleBits) {
            std::u32string haystack, needle;
            for (int i = 0; i < 10; ++i)
                haystack += U"ab"[haystackBits >> i & 1];
            for (uint32_t bits = needleBits; bits > 1; bits >>= 1)
                needle += U"ab"[bits & 1];
            auto expected = haystack.find(needle);
            ASSERT_EQ(
                voStringFindChars(str(haystack), 0, chars(needle.data()), int64_t(needle.size())),
                expected == std::u32string::npos ? -1 : int64_t(expected));
        }
}

TEST(String, FormatTakesOverItsArguments) {
    EXPECT_EQ(formatted("<!--%~s-->", -1, str("x")), "<!--x-->");
    EXPECT_EQ(formatted("%~s%~s", 3, str("x")), "x");
    EXPECT_EQ(formatted("100%%", -1), "100%");
    EXPECT_EQ(formatted("", -1), "");
    Ref name = str("n");
    Ref target = str("!");
    voStringAppendFormatCstr(target.edit(), " %~s=%~s", -1, voStringRetain(name),
                             voStringRetain(target));
    EXPECT_EQ(text(target), "! n=!");
    EXPECT_EQ(text(name), "n");
    for (const char *bad : {"%", "a%~", "%s", "%d"})
        EXPECT_ABORT(formatted(bad, -1), "source/vo/vo_format.cpp",
                     "placeholder.starts_with(\"%~s\")");
}

TEST(String, TakesOverABlockAndGrowsInIt) {
    for (int64_t count : {0, 1, 9, 100}) {
        auto *block = static_cast<uint32_t *>(voMemAllocN(4 * count + 1, 1));
        for (int64_t i = 0; i < count; ++i)
            block[i] = 'a';
        Ref string(voStringCreateFromCharsUse(block, count));
        EXPECT_EQ(voStringBacking(string), block);
        voStringAppendChars(string.edit(), chars(U"bcd"), 3);
        EXPECT_EQ(text(string), std::string(size_t(count), 'a') + "bcd");
    }
    auto *block = static_cast<uint32_t *>(voMemAllocN(3, 4));
    EXPECT_ABORT((void)Ref(voStringCreateFromCharsUse(block, 4)), unit,
                 "count >= 0 && count <= str->length");
    voMemFree(block);
}

TEST(String, IsAppendedToItself) {
    Ref string = str("abc");
    for (int i = 0; i < 4; ++i)
        voStringAppend(string.edit(), string);
    EXPECT_EQ(voStringLength(string), 48);
    voStringAppendChars(string.edit(), voStringBacking(string) + 1, 2);
    EXPECT_EQ(text(string).substr(45), "abcbc");
}

TEST(String, KeepsAPart) {
    Ref string = str("abcdef");
    for (size_t count = 0; count <= 6; ++count)
        EXPECT_EQ(test::take(voStringCreateFromLeading(string, int64_t(count))),
                  text(string).substr(0, count));
    voStringDelLeading(string.edit(), 2);
    EXPECT_EQ(text(string), "cdef");
    voStringDelLeading(string.edit(), 4);
    EXPECT_EQ(text(string), "");
    EXPECT_ABORT(voStringDelLeading(string.edit(), 1), unit,
                 "count >= 0 && count <= (*str)->length");
    EXPECT_ABORT(voStringCharAt(string, 0), unit, "index >= 0 && index < str->length");
}

TEST(String, RefusesToGrowBeyondTheAddressSpace) {
    Ref string = str("a");
    EXPECT_ABORT(voStringAppendChars(string.edit(), voStringBacking(string), INT64_MAX), unit,
                 "count <= mostItems<voString> - length");
    EXPECT_ABORT((void)Ref(voStringCreateFromCharsCopy(voStringBacking(string), INT64_MAX / 4)),
                 unit, "count <= mostItems<voString>");
}
