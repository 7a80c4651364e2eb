#include "source/xml/base/xml_skip.hpp"
#include "tests/support.hpp"

#include <random>
#include <vector>

using test::str;

namespace {

int64_t run(int64_t (*scan)(const uint32_t *, int64_t), std::u32string_view input) {
    // A copy of the exact size lets the sanitizer see a look past the end.
    std::vector<uint32_t> chars(input.begin(), input.end());
    return scan(chars.data(), int64_t(chars.size()));
}

TEST(Skip, GivesTheLengthOfTheProductionAtTheStart) {
    const struct {
        int64_t (*scan)(const uint32_t *, int64_t);
        std::u32string_view input;
        int64_t length;
    } rows[] = {
        {xml___SkipS, U" \t\r\n", 4},
        {xml___SkipS, U"  a", 2},
        {xml___SkipS, U"a", 0},
        {xml___SkipS, U"\u00A0", 0},
        {xml___SkipName, U"a:b-c.d e", 7},
        {xml___SkipName, U"1abc", 0},
        {xml___SkipName, U":", 1},
        {xml___SkipName, U"\u00E9t\u00E9\u0301\u203F", 5},
        {xml___SkipName, U"a\u00D7", 1},
        {xml___SkipName, U"\u0301a", 0},
        {xml___SkipName, U"\U000EFFFF\U000F0000", 1},
        {xml___SkipNames, U"a b  ", 3},
        {xml___SkipNames, U"a  b", 4},
        {xml___SkipNames, U" a", 0},
        {xml___SkipNames, U"a 1", 1},
        {xml___SkipNmtoken, U"1a b", 2},
        {xml___SkipNmtokens, U"1 -\t.x ", 6},
        {xml___SkipEntityRef, U"&foo;", 5},
        {xml___SkipEntityRef, U"&foo", 0},
        {xml___SkipEntityRef, U"&;", 0},
        {xml___SkipEntityRef, U"&lt;x", 4},
        {xml___SkipEntityRef, U"&#65;", 0},
        {xml___SkipReference, U"&lt;", 4},
        {xml___SkipReference, U"&#65;", 5},
        {xml___SkipReference, U"& ", 0},
        {xml___SkipAttValue, U"'a\"b'", 5},
        {xml___SkipAttValue, U"'a<b'", 0},
        {xml___SkipAttValue, U"'a&b'", 0},
        {xml___SkipAttValue, U"\"a&amp;b\"c\"", 9},
        {xml___SkipAttValue, U"\"&#x41;\"", 8},
        {xml___SkipAttValue, U"\"never closed, and longer than a block", 0},
        {xml___SkipAttValue, U"\"", 0},
        {xml___SkipVersionNum, U"1.0", 3},
        {xml___SkipVersionNum, U"1.", 0},
        {xml___SkipVersionNum, U"2.0", 0},
        {xml___SkipVersionNum, U"1.01x", 4},
        {xml___SkipEq, U" = x", 3},
        {xml___SkipEq, U"=", 1},
        {xml___SkipEq, U"  ", 0},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(run(row.scan, row.input), row.length) << test::text(str(row.input));
        EXPECT_EQ(row.scan(nullptr, 0), 0);
    }
}

TEST(Skip, CharacterReferencesGiveTheirCodePoint) {
    const struct {
        std::u32string_view input;
        int64_t length;
        uint32_t value;
    } rows[] = {
        {U"&#10;", 5, 10},
        {U"&#x3C;", 6, '<'},
        {U"&#X3c;", 6, '<'},
        {U"&#0;", 0, 0},
        {U"&#xD800;", 8, 0xD800},
        {U"&#1114110;", 10, 0x10FFFE},
        {U"&#1114111;", 0, 0},
        {U"&#x10FFFE;", 10, 0x10FFFE},
        {U"&#x10FFFF;", 0, 0},
        {U"&#00000000000000000000000000000065;", 35, 65},
        {U"&#18446744073709551681;", 0, 0}, // 65 modulo two to the 64
        {U"&#;", 0, 0},
        {U"&#x;", 0, 0},
        {U"&#xG;", 0, 0},
        {U"&#65", 0, 0},
        {U"&#x", 0, 0},
        {U"&#", 0, 0},
    };
    for (const auto &row : rows) {
        std::vector<uint32_t> chars(row.input.begin(), row.input.end());
        uint32_t value = 1;
        EXPECT_EQ(xml___SkipCharRef(chars.data(), int64_t(chars.size()), &value), row.length)
            << test::text(str(row.input));
        if (row.length) {
            EXPECT_EQ(value, row.value);
        }
    }
}

TEST(Skip, ChecksItsRun) {
    const uint32_t c = 'a';
    EXPECT_ABORT(xml___SkipName(&c, -1), "source/xml/base/xml_skip.cpp", "length >= 0");
    EXPECT_ABORT(xml___SkipS(nullptr, 1), "source/xml/base/xml_skip.cpp", "length == 0 || chs");
}

TEST(Skip, ScansBytesAsItScansCodePoints) {
    constexpr std::u32string_view alphabet =
        U"ab:-1 \t\n\"'<&;#x=.\u00B7\u00E9\u0301\u4E2D\U0001F600";
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        std::u32string chars(random() % 40, U' ');
        for (char32_t &c : chars)
            c = alphabet[random() % alphabet.size()];
        std::string utf8 = test::text(str(chars));
        auto *units = reinterpret_cast<const uint32_t *>(chars.data()), *end = units + chars.size();
        auto *bytes = reinterpret_cast<const uint8_t *>(utf8.data()),
             *bytesEnd = bytes + utf8.size();
        const auto agree = [&](const uint32_t *unit, const uint8_t *byte) {
            Ref prefix(voStringCreateFromCharsCopy(units, unit - units));
            EXPECT_EQ(test::text(prefix), utf8.substr(0, size_t(byte - bytes))) << utf8;
        };
        agree(xml::skipName(units, end), xml::skipName(bytes, bytesEnd));
        agree(xml::skipAttValue(units, end), xml::skipAttValue(bytes, bytesEnd));
        agree(xml::skipCharData(units, end), xml::skipCharData(bytes, bytesEnd));
        agree(xml::skipReference(units, end), xml::skipReference(bytes, bytesEnd));
    }
}

} // namespace
