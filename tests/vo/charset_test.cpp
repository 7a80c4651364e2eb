#include "tests/support.hpp"
#include "tests/vo/naive_utf8.hpp"

#include <algorithm>
#include <cctype>
#include <random>

namespace {

using namespace std::literals;
using test::buffer;
using test::str;

constexpr voCharset last = VO_CHARSET_UTF_32LE;
constexpr voCharsetFlags bom = VO_CHARSET_FLAG_BOM, sniff = VO_CHARSET_FLAG_SNIFF;

Ref<voString> decoded(voCharset charset, std::string_view bytes, voCharsetFlags flags = 0) {
    return Ref(voCharsetTryConvertBufferToStringWithFlags(charset, buffer(bytes), flags));
}

Ref<voBuffer> encoded(voCharset charset, std::u32string_view text, voCharsetFlags flags = 0) {
    return Ref(voCharsetTryConvertStringToBufferWithFlags(charset, str(text), flags));
}

/// As UTF-8, or "<null>".
std::string readAs(voCharset charset, std::string_view bytes, voCharsetFlags flags = 0) {
    return test::text(decoded(charset, bytes, flags));
}

std::string writeAs(voCharset charset, std::u32string_view text, voCharsetFlags flags = 0) {
    Ref bytes = encoded(charset, text, flags);
    return bytes ? test::bytes(bytes) : "<null>";
}

// ---------------------------------------------------------------- names and flags

TEST(Charset, EveryNameAndAliasLeadsToItsIdInAnyCase) {
    for (voCharset id = 0; id <= last; ++id) {
        Ref name(voCharsetToIanaName(id));
        EXPECT_EQ(voCharsetFromIanaName(name), id) << test::text(name);
        Ref aliases(voCharsetAliases(id));
        EXPECT_GT(voVectorLength(aliases), 0);
        for (int64_t i = 0; i < voVectorLength(aliases); ++i) {
            Ref alias(voVectorObjAt(aliases, i));
            std::string text = test::text(voStringFrom(alias));
            for (char &c : text)
                c = char(i % 2 ? std::toupper(c) : std::tolower(c));
            EXPECT_EQ(voCharsetFromIanaName(str(text)), id) << text;
        }
    }
}

TEST(Charset, NamesThatAreNotKnownAreMinusOne) {
    for (std::u32string_view name : {U"", U"UTF", U"UTF-88", U" UTF-8", U"ebcdic", U"utf-8 utf8",
                                     U"\u0130SO-8859-1", U"\U00010055TF-8"})
        EXPECT_EQ(voCharsetFromIanaName(str(name)), -1);
}

TEST(Charset, FlagWordsHaveATextForm) {
    for (voCharsetFlags flags = 0; flags < 8; ++flags)
        EXPECT_EQ(voCharsetFlagsFromString(Ref(voCharsetFlagsToString(flags))),
                  voCharsetFlagsNormalize(flags));
    EXPECT_EQ(test::take(voCharsetFlagsToString(7)), "VO_CHARSET_FLAG_BOM|VO_CHARSET_FLAG_SNIFF");
    EXPECT_EQ(voCharsetFlagsFromString(str("VO_CHARSET_FLAG_BOM|BOM")), VO_FLAG_UNKNOWN | 1);
}

TEST(CharsetDeathTest, AnIdOutOfRangeIsAMistakeOfTheCaller) {
    for (voCharset id : {voCharset{-1}, last + 1})
        EXPECT_ABORT(test::take(voCharsetToIanaName(id)), "source/vo/vo_charset_names.cpp",
                     "VO_CHARSET_OK( charset )");
}

// ---------------------------------------------------------------- one byte, one character

TEST(Charset, EveryByteThatHasACharacterIsWrittenByIt) {
    constexpr int defined[] = {128, 256, 256, 249, 256, 256, 211, 253, 220, 256, 256, 248,
                               256, 256, 256, 256, 251, 255, 251, 239, 249, 233, 256, 244,
                               247, 225, 256, 256, 256, 256, 256, 256, 253, 256, 256, 256};
    for (voCharset id = VO_CHARSET_US_ASCII; id <= VO_CHARSET_MACINTOSH; ++id) {
        std::string bytes;
        for (int byte = 0; byte < 256; ++byte) {
            std::string one(1, char(byte));
            Ref text = decoded(id, one);
            EXPECT_EQ(readAs(id, one, sniff), text ? test::text(text) : "\uFFFD");
            if (!text) continue;
            EXPECT_EQ(voStringLength(text), 1);
            EXPECT_TRUE(byte >= 128 || voStringCharAt(text, 0) == uint32_t(byte));
            bytes += one;
        }
        EXPECT_EQ(bytes.size(), size_t(defined[id])) << id;
        Ref back(voCharsetTryConvertStringToBufferWithFlags(id, decoded(id, bytes), 0));
        ASSERT_TRUE(back) << id;
        EXPECT_EQ(test::bytes(back), bytes);
    }
}

TEST(Charset, SampleTextsReadAndWrite) {
    constexpr struct {
        voCharset id;
        std::string_view bytes;
        std::u32string_view text;
    } cases[] = {
        {VO_CHARSET_ISO_8859_1, "\x80\xE9\xFF", U"\x80\xE9\xFF"},
        {VO_CHARSET_ISO_8859_15, "\xA4", U"\u20AC"},
        {VO_CHARSET_TIS_620, "\xA0\xA1", U"\u00A0\u0E01"},
        {VO_CHARSET_WINDOWS_1252, "\x80\x93x\x94", U"\u20AC\u201Cx\u201D"},
        {VO_CHARSET_WINDOWS_1255, "\xE9\xC4", U"\u05D9\u05B4"}, // not composed
        {VO_CHARSET_WINDOWS_1258, "a\xCC", U"a\u0300"},
        {VO_CHARSET_WINDOWS_874, "\x80\xA1", U"\u20AC\u0E01"},
        {VO_CHARSET_KOI8_R, "\xC1\xDA", U"\u0430\u0437"},
        {VO_CHARSET_IBM437, "\x80\xE1", U"\u00C7\u00DF"},
        {VO_CHARSET_MACINTOSH, "\xC6\xDB\xF0", U"\u2206\u20AC\uF8FF"},
        {VO_CHARSET_SHIFT_JIS, "\\~\x93\xFA\x96{\xB1", U"\\~\u65E5\u672C\uFF71"},
        {VO_CHARSET_EUC_JP, "\\~\xC6\xFC\x8E\xB1\x8F\xB0\xA1", U"\\~\u65E5\uFF71\u4E02"},
        {VO_CHARSET_ISO_2022_JP, "<\x1B$BF|\x1B(B>", U"<\u65E5>"},
        {VO_CHARSET_ISO_2022_JP, "\x1B(J\\\x1B(B\\", U"\u00A5\\"},
        {VO_CHARSET_EUC_KR, "\xC7\xD1\xB1\xDB", U"\uD55C\uAE00"},
        {VO_CHARSET_GB2312, "\xD6\xD0\xCE\xC4", U"\u4E2D\u6587"},
        {VO_CHARSET_GBK, "\x81\x40\xD6\xD0", U"\u4E02\u4E2D"},
        {VO_CHARSET_GB18030, "\xD6\xD0\x90\x30\x81\x30\x84\x31\x95\x33", U"\u4E2D\U00010000\uFEFF"},
        {VO_CHARSET_BIG5, "\xA4\xA4\xA4\xE5", U"\u4E2D\u6587"},
        {VO_CHARSET_UTF_8, "\xF0\x9F\x98\x80", U"\U0001F600"},
        {VO_CHARSET_UTF_16BE, "\xD8\x3D\xDE\x00"sv, U"\U0001F600"},
        {VO_CHARSET_UTF_16LE, "\x3D\xD8\x00\xDE"sv, U"\U0001F600"},
        {VO_CHARSET_UTF_32BE, "\x00\x01\xF6\x00"sv, U"\U0001F600"},
        {VO_CHARSET_UTF_32LE, "\x00\xF6\x01\x00"sv, U"\U0001F600"},
    };
    for (auto &[id, bytes, text] : cases) {
        EXPECT_EQ(readAs(id, bytes), test::naiveUtf8(text)) << id;
        EXPECT_EQ(writeAs(id, text), bytes) << id;
    }
}

TEST(Charset, XmlSyntaxIsItselfInEveryCharset) {
    std::u32string syntax;
    for (char32_t ch = ' '; ch < 0x7F; ++ch)
        syntax += ch;
    syntax += U"\t\n\r";
    for (voCharset id = 0; id <= last; ++id) {
        EXPECT_EQ(readAs(id, writeAs(id, syntax)), test::naiveUtf8(syntax)) << id;
        EXPECT_EQ(writeAs(id, syntax) == test::naiveUtf8(syntax), id < VO_CHARSET_UTF_16) << id;
    }
}

TEST(Charset, ACharacterThatTheCharsetLacksIsNotReplaced) {
    constexpr struct {
        voCharset id;
        std::u32string_view text;
    } cases[] = {
        {VO_CHARSET_US_ASCII, U"\x80"},       {VO_CHARSET_ISO_8859_1, U"\u0100"},
        {VO_CHARSET_ISO_8859_2, U"\u00E5"},   {VO_CHARSET_WINDOWS_1252, U"\x81"},
        {VO_CHARSET_WINDOWS_1258, U"\u1EA1"}, {VO_CHARSET_KOI8_R, U"\u0456"},
        {VO_CHARSET_SHIFT_JIS, U"\u00A5"},    {VO_CHARSET_SHIFT_JIS, U"\u203E"},
        {VO_CHARSET_EUC_JP, U"\u00A5"},       {VO_CHARSET_EUC_JP, U"a\U000E0041b"},
        {VO_CHARSET_ISO_2022_JP, U"\x1B"},    {VO_CHARSET_ISO_2022_JP, U"\uFF71"},
        {VO_CHARSET_EUC_KR, U"\u20A9"},       {VO_CHARSET_GB2312, U"\u4E02"},
        {VO_CHARSET_GBK, U"\U000E0001"},      {VO_CHARSET_BIG5, U"\u4E02"},
    };
    for (auto &[id, text] : cases)
        EXPECT_FALSE(encoded(id, text)) << id;
}

TEST(Charset, SurrogatesAndTooLargeValuesFitNowhere) {
    for (voCharset id = 0; id <= last; ++id)
        for (char32_t bad : {char32_t(0xD800), char32_t(0xDFFF), char32_t(0x110000)})
            EXPECT_FALSE(encoded(id, std::u32string(2, U'a') + bad, bom)) << id;
}

// ---------------------------------------------------------------- marks and byte order

TEST(Charset, MarksAreReadAndWrittenAsTheFlagsSay) {
    constexpr struct {
        voCharset id;
        std::string_view mark, letter;
    } cases[] = {
        {VO_CHARSET_UTF_8, "\xEF\xBB\xBF", "a"},
        {VO_CHARSET_UTF_16BE, "\xFE\xFF", "\0a"sv},
        {VO_CHARSET_UTF_16LE, "\xFF\xFE", "a\0"sv},
        {VO_CHARSET_UTF_32BE, "\0\0\xFE\xFF"sv, "\0\0\0a"sv},
        {VO_CHARSET_UTF_32LE, "\xFF\xFE\0\0"sv, "a\0\0\0"sv},
    };
    for (auto &[id, mark, letter] : cases) {
        std::string plain(letter), marked = std::string(mark) + plain;
        std::string twice = std::string(mark) + marked;
        EXPECT_EQ(readAs(id, plain, bom), "a");
        EXPECT_EQ(readAs(id, marked), "\uFEFFa");
        EXPECT_EQ(readAs(id, marked, bom), "a");
        EXPECT_EQ(readAs(id, marked, sniff), "a");
        EXPECT_EQ(readAs(id, twice, bom | sniff), "\uFEFFa");
        EXPECT_EQ(readAs(id, mark, bom), "");
        EXPECT_EQ(writeAs(id, U"a"), plain);
        EXPECT_EQ(writeAs(id, U"a", bom), marked);
        EXPECT_EQ(writeAs(id, U"a", sniff), plain);
        EXPECT_EQ(writeAs(id, U"\uFEFFa"), marked);
        EXPECT_EQ(writeAs(id, U"\uFEFFa", bom), twice);
    }
    for (voCharset id : {VO_CHARSET_ISO_8859_1, VO_CHARSET_SHIFT_JIS, VO_CHARSET_GB18030})
        EXPECT_EQ(writeAs(id, U"a", bom), "a");
}

TEST(Charset, Utf16AndUtf32FindTheirByteOrder) {
    constexpr struct {
        voCharset id;
        std::string_view bytes, text;
    } cases[] = {
        {VO_CHARSET_UTF_16, "\xFE\xFF\0a"sv, "a"},
        {VO_CHARSET_UTF_16,
         "\xFF\xFE"
         "a\0"sv,
         "a"},
        {VO_CHARSET_UTF_16, "\xFF\xFE\xFF\xFE"sv, "\uFEFF"},
        {VO_CHARSET_UTF_16, "\0<"sv, "<"},
        {VO_CHARSET_UTF_16, "<\0"sv, "<"},
        {VO_CHARSET_UTF_16, "\n\0<\0"sv, "\n<"},
        {VO_CHARSET_UTF_16, "a\0"sv, "\u6100"},
        {VO_CHARSET_UTF_16, "", ""},
        {VO_CHARSET_UTF_32, "\0\0\xFE\xFF\0\0\0a"sv, "a"},
        {VO_CHARSET_UTF_32, "\xFF\xFE\0\0a\0\0\0"sv, "a"},
        {VO_CHARSET_UTF_32, "\0\0\0<"sv, "<"},
        {VO_CHARSET_UTF_32, "\t\0\0\0"sv, "\t"},
        {VO_CHARSET_UTF_32, "\0\x01\0\0"sv, "\U00010000"},
    };
    for (auto &[id, bytes, text] : cases)
        for (voCharsetFlags flags : {voCharsetFlags{0}, bom, sniff, bom | sniff})
            EXPECT_EQ(readAs(id, bytes, flags), text) << testing::PrintToString(bytes);
    for (voCharsetFlags flags : {voCharsetFlags{0}, bom, sniff, bom | sniff}) {
        EXPECT_EQ(writeAs(VO_CHARSET_UTF_16, U"a", flags), "\xFE\xFF\0a"sv);
        EXPECT_EQ(writeAs(VO_CHARSET_UTF_32, U"a", flags), "\0\0\xFE\xFF\0\0\0a"sv);
        EXPECT_EQ(writeAs(VO_CHARSET_UTF_16, U"", flags), "\xFE\xFF");
    }
}

// ---------------------------------------------------------------- ill-formed input

TEST(Charset, IllFormedInputIsRefusedOrRepaired) {
    constexpr struct {
        voCharset id;
        std::string_view bytes, repaired;
    } cases[] = {
        {VO_CHARSET_US_ASCII, "a\x80z", "a\uFFFDz"},
        {VO_CHARSET_WINDOWS_1252, "a\x81z", "a\uFFFDz"},
        {VO_CHARSET_UTF_8, "\xC3(", "\uFFFD("},
        {VO_CHARSET_UTF_8, "\xE2\x82(", "\uFFFD("},
        {VO_CHARSET_UTF_8, "\xC0\x80", "\uFFFD\uFFFD"},
        {VO_CHARSET_UTF_8, "\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
        {VO_CHARSET_UTF_8, "\xF4\x90z", "\uFFFD\uFFFDz"},
        {VO_CHARSET_UTF_8, "a\xF0\x9F\x98", "a"},
        {VO_CHARSET_UTF_8, "a\xC3", "a"},
        {VO_CHARSET_UTF_16BE, "\0a\0"sv, "a"},
        {VO_CHARSET_UTF_16BE, "\0a\xD8\0"sv, "a"},
        {VO_CHARSET_UTF_16BE, "\0a\xD8\0\xDC"sv, "a"},
        {VO_CHARSET_UTF_16BE, "\xDC\0\0a"sv, "\uFFFDa"},
        {VO_CHARSET_UTF_16LE, "\0\xD8z\0"sv, "\uFFFDz"},
        {VO_CHARSET_UTF_16LE, "\0\xD8\0\xD8\0\xDC"sv, "\uFFFD\U00010000"},
        {VO_CHARSET_UTF_32BE, "\0\0\0a\0\0\0"sv, "a"},
        {VO_CHARSET_UTF_32BE, "\0\0\xD8\0\0\0\0a"sv, "\uFFFDa"},
        {VO_CHARSET_UTF_32LE, "\0\0\x11\0a\0\0\0"sv, "\uFFFDa"},
        {VO_CHARSET_UTF_32LE, "\xFF\xFF\xFF\xFF", "\uFFFD"},
        {VO_CHARSET_SHIFT_JIS, "a\x93", "a"},
        {VO_CHARSET_SHIFT_JIS, "a\xFFz", "a\uFFFDz"},
        {VO_CHARSET_EUC_JP, "\xC6z\xC6\xFC", "\uFFFDz\u65E5"},
        {VO_CHARSET_ISO_2022_JP, "a\x80\x1B$BF|\x1B(Bz", "a\uFFFD\u65E5z"},
        {VO_CHARSET_GB18030, "a\x81\x30\x81", "a"},
        {VO_CHARSET_BIG5, "\xA4 \xA4\xA4", "\uFFFD \u4E2D"},
    };
    for (auto &[id, bytes, repaired] : cases) {
        EXPECT_FALSE(decoded(id, bytes)) << testing::PrintToString(bytes);
        EXPECT_FALSE(decoded(id, bytes, bom)) << testing::PrintToString(bytes);
        EXPECT_EQ(readAs(id, bytes, sniff), repaired) << testing::PrintToString(bytes);
        EXPECT_EQ(readAs(id, bytes, sniff | bom), repaired) << testing::PrintToString(bytes);
    }
}

TEST(Charset, SniffingTakesAnyBytesAndKeepsWellFormedOnes) {
    std::mt19937 random(7);
    for (int round = 0; round < 60; ++round) {
        std::string noise;
        for (size_t length = random() % 200; length; --length)
            noise += char(random() % (round % 2 ? 256 : 128));
        for (voCharset id = 0; id <= last; ++id) {
            std::string loose = readAs(id, noise, sniff), strict = readAs(id, noise, bom);
            ASSERT_TRUE(test::naiveDecode(loose)) << id;
            ASSERT_TRUE(strict == "<null>" || strict == loose) << id;
        }
    }
}

TEST(Charset, AHeadThatEndsInsideACharacterLosesThatCharacterOnly) {
    std::u32string text(U"<?xml version='1.0'?>");
    for (int i = 0; i < 600; ++i)
        text += i % 3 ? char32_t(0x65E5) : char32_t('a');
    std::string utf8 = test::naiveUtf8(text);
    for (voCharset id = VO_CHARSET_SHIFT_JIS; id <= last; ++id) {
        std::string bytes = writeAs(id, text);
        ASSERT_NE(bytes, "<null>") << id;
        for (size_t length = 1000; length <= 1024; ++length) {
            std::string head = readAs(id, bytes.substr(0, length), sniff);
            ASSERT_EQ(utf8.substr(0, head.size()), head) << id;
            // Four bytes for each character is the most there is.
            ASSERT_GE(test::naiveDecode(head)->size() + 1, length / 4 - 1) << id;
        }
    }
}

// ---------------------------------------------------------------- whole texts

TEST(Charset, RandomTextSurvivesInEveryUnicodeForm) {
    std::mt19937 random(99);
    for (int round = 0; round < 200; ++round) {
        std::u32string text;
        while (text.size() < size_t(round)) {
            auto ch = char32_t(random() % (round % 2 ? 0x110000 : 0x900));
            if (ch < 0xD800 || ch > 0xDFFF) text += ch;
        }
        std::string utf8 = test::naiveUtf8(text);
        for (voCharset id = VO_CHARSET_GB18030; id <= last; ++id) {
            if (id == VO_CHARSET_BIG5) continue;
            Ref converted(voCharsetTryConvertUtf8ToBufferWithFlags(id, buffer(utf8), bom));
            ASSERT_TRUE(converted) << id;
            ASSERT_EQ(test::bytes(converted), writeAs(id, text, bom)) << id;
            Ref back(voCharsetTryConvertBufferToUtf8WithFlags(id, converted, bom));
            ASSERT_TRUE(back && test::bytes(back) == utf8) << id;
        }
    }
}

TEST(Charset, ALetterAmongAsciiSurvivesWhereverItStands) {
    for (size_t length = 1; length <= 70; ++length)
        for (size_t place = 0; place < length; ++place) {
            std::u32string text(length, U'x');
            text[place] = 0xE9;
            std::string utf8 = test::naiveUtf8(text);
            for (voCharset id : {VO_CHARSET_ISO_8859_1, VO_CHARSET_UTF_16BE, VO_CHARSET_UTF_16LE,
                                 VO_CHARSET_UTF_32LE})
                ASSERT_EQ(readAs(id, writeAs(id, text)), utf8) << id << " at " << place;
        }
}

TEST(Charset, LongTextsSurviveInEveryCharset) {
    for (voCharset id = 0; id <= last; ++id) {
        char32_t other = id < VO_CHARSET_SHIFT_JIS ? U'b' : 0x4E2D;
        if (id >= VO_CHARSET_TIS_620 && id < VO_CHARSET_SHIFT_JIS) other = 0xA0;
        std::u32string text;
        for (size_t i = 0; i < 70000; ++i)
            text += i % 7 % 3 ? other : U'a';
        if (id == VO_CHARSET_EUC_KR) std::replace(text.begin(), text.end(), other, U'\uD55C');
        EXPECT_EQ(readAs(id, writeAs(id, text)), test::naiveUtf8(text)) << id;
    }
}

TEST(Charset, TextThatIsUtf8AlreadyIsNotCopied) {
    Ref ascii = buffer("<a/>"), umlaut = buffer("<\xC3\xA4/>");
    auto toUtf8 = voCharsetTryConvertBufferToUtf8WithFlags;
    auto fromUtf8 = voCharsetTryConvertUtf8ToBufferWithFlags;
    for (voCharset id = 0; id <= VO_CHARSET_UTF_8; ++id) {
        bool same = id != VO_CHARSET_ISO_2022_JP;
        EXPECT_EQ(Ref(toUtf8(id, ascii, bom)) == ascii, same) << id;
        EXPECT_EQ(Ref(fromUtf8(id, ascii, 0)) == ascii, same) << id;
    }
    EXPECT_EQ(Ref(toUtf8(VO_CHARSET_UTF_8, umlaut, bom)), umlaut);
    EXPECT_EQ(Ref(fromUtf8(VO_CHARSET_UTF_8, umlaut, 0)), umlaut);
    EXPECT_FALSE(Ref(fromUtf8(VO_CHARSET_UTF_8, buffer("\xC3"), 0)));
    EXPECT_FALSE(Ref(fromUtf8(VO_CHARSET_UTF_16, buffer("\xED\xA0\x80"), sniff)));
}

} // namespace
