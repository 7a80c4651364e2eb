#include "tests/support.hpp"
#include "tests/vo/naive_utf8.hpp"

#include "source/vo/vo_utf.hpp"

#include <random>
#include <vector>

namespace {

using test::naiveUtf8;

/// The bytes in a block of exactly their size, so that a sanitizer reports a read beyond it.
std::vector<char> block(std::string_view bytes) { return {bytes.begin(), bytes.end()}; }

Ref<voString> decoded(std::string_view bytes) {
    std::vector<char> exact = block(bytes);
    return Ref(voStringTryCreateFromUtf8(exact.data(), int64_t(exact.size())));
}

constexpr std::string_view illFormed[] = {
    "\x80",
    "\xBF",
    "\xC0\x80",
    "\xC1\xBF",
    "\xE0\x80\x80",
    "\xE0\x9F\xBF",
    "\xED\xA0\x80",
    "\xED\xBF\xBF",
    "\xF0\x80\x80\x80",
    "\xF0\x8F\xBF\xBF",
    "\xF4\x90\x80\x80",
    "\xF5\x80\x80\x80",
    "\xF8\x88\x80\x80\x80",
    "\xFE",
    "\xFF",
    "\xC2",
    "\xC2\xC2\x80",
    "\xC3\x28",
    "\xE2\x82",
    "\xE2\x28\xA1",
    "\xE2\x82\x28",
    "\xE2\x82\xAC\x80",
    "\xF0\x9F\x98",
    "\xF0\x28\x98\x80",
    "\xF0\x9F\x28\x80",
    "\xF0\x9F\x98\x28",
    "\xF0\x9F\x98\x80\x80",
};

TEST(Utf8, AnIllFormedSequenceIsRefusedWhereverItStands) {
    for (std::string_view bad : illFormed)
        for (std::string_view filler : {"x", "\xD1\x8F", "\xE4\xB8\xAD", "\xF0\x9F\x98\x80"})
            for (int before = 0; before <= 70; ++before)
                for (int after : {0, 1, 17, 66}) {
                    std::string text;
                    for (int i = 0; i < before; ++i)
                        text += filler;
                    text += bad;
                    for (int i = 0; i < after; ++i)
                        text += filler;
                    ASSERT_FALSE(decoded(text)) << testing::PrintToString(text);
                }
}

TEST(Utf8, BytesAreWellFormedExactlyWhenTheDefinitionSaysSo) {
    constexpr uint8_t edges[] = {0x00, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0, 0xC2, 0xFF};
    const std::string filler = "\u044F\u044F\u044F\u044F\u044F\u044F\u044F\u044F\u044F";
    for (int lead = 0; lead < 256; ++lead)
        for (uint8_t second : edges)
            for (uint8_t third : edges)
                for (uint8_t fourth : edges) {
                    const char bytes[] = {char(lead), char(second), char(third), char(fourth)};
                    std::string_view text(bytes, 4);
                    bool right = test::naiveDecode(text).has_value();
                    ASSERT_EQ(bool(decoded(text)), right) << testing::PrintToString(text);
                    std::string embedded = filler + std::string(text) + filler;
                    ASSERT_EQ(bool(decoded(embedded)), right) << testing::PrintToString(text);
                }
}

/// Runs of characters of one length, 1 to 12 long, and every length of text.
std::u32string randomText(std::mt19937 &random, size_t length) {
    constexpr struct {
        uint32_t first, last;
    } ranges[] = {{0, 0x7F}, {0x80, 0x7FF}, {0x800, 0xD7FF}, {0xE000, 0xFFFF}, {0x10000, 0x10FFFF}};
    std::u32string text;
    while (text.size() < length) {
        auto [first, last] = ranges[random() % std::size(ranges)];
        for (size_t run = 1 + random() % 12; run && text.size() < length; --run)
            text += char32_t(first + random() % (last - first + 1));
    }
    return text;
}

TEST(Utf8, RandomTextSurvivesInEveryLength) {
    std::mt19937 random(4711);
    for (size_t length = 0; length <= 200; ++length)
        for (int repeat = 0; repeat < 10; ++repeat) {
            std::u32string chars = randomText(random, length);
            std::string utf8 = naiveUtf8(chars);
            Ref string = decoded(utf8);
            ASSERT_TRUE(string);
            ASSERT_TRUE(voStringEquals(string, test::str(chars)));
            ASSERT_EQ(test::text(string), utf8);
        }
}

TEST(Utf8, EveryScalarValueSurvives) {
    std::u32string chars;
    for (uint32_t ch = 0; ch <= 0x10FFFF; ++ch)
        if (vo::isScalar(ch)) chars += char32_t(ch);
    ASSERT_EQ(chars.size(), 0x10F800u);
    Ref string = test::str(chars);
    EXPECT_EQ(test::text(string), naiveUtf8(chars));
    EXPECT_TRUE(voStringEquals(string, decoded(naiveUtf8(chars))));
}

TEST(Utf8, AValueThatIsNoCharacterIsRefusedWhereverItStands) {
    for (uint32_t bad : {0xD800u, 0xDBFFu, 0xDC00u, 0xDFFFu, 0x110000u, 0x80000041u, 0xFFFFFFFFu})
        for (size_t length = 1; length <= 40; ++length)
            for (size_t place = 0; place < length; ++place) {
                std::u32string chars(length, U'x');
                chars[place] = char32_t(bad);
                ASSERT_FALSE(Ref(voStringTryToUtf8(test::str(chars)))) << bad << " at " << place;
            }
}

TEST(Utf8, SkippingAsciiStopsAtTheFirstOtherByte) {
    for (size_t length = 0; length <= 150; ++length)
        for (size_t place = 0; place <= length; ++place) {
            std::vector<uint8_t> bytes(length, 'x');
            if (place < length) bytes[place] = 0x80;
            const uint8_t *begin = bytes.data();
            ASSERT_EQ(vo::skipAscii(begin, begin + length), begin + place);
        }
}

TEST(Utf8, ACountOfMinusOneEndsAtTheNulAndAMarkIsKept) {
    Ref string(voStringTryCreateFromUtf8("\xEF\xBB\xBF\xC3\xA4\0x", -1));
    EXPECT_TRUE(voStringEquals(string, test::str(U"\uFEFF\u00E4")));
}

} // namespace
