#include "tests/support.hpp"

#include "source/vo/vo_location.hpp"

#include <random>
#include <vector>

using test::str;
using test::take;

namespace {

constexpr const char *unit = "source/vo/vo_location.cpp";

/// Whether the code point at `i` is the last one of a newline.
bool endsLine(const std::u32string &text, size_t i, voNlfFlags flags) {
    bool crLf = flags & VO_NLF_FLAG_CRLF;
    switch (text[i]) {
    case 0x0A:
        return (crLf && i && text[i - 1] == 0x0D) || (flags & VO_NLF_FLAG_LF);
    case 0x0B:
        return flags & VO_NLF_FLAG_VT;
    case 0x0C:
        return flags & VO_NLF_FLAG_FF;
    case 0x0D:
        return (flags & VO_NLF_FLAG_CR) && !(crLf && i + 1 < text.size() && text[i + 1] == 0x0A);
    case 0x85:
        return flags & VO_NLF_FLAG_NEL;
    case 0x2028:
        return flags & VO_NLF_FLAG_LS;
    case 0x2029:
        return flags & VO_NLF_FLAG_PS;
    default:
        return false;
    }
}

/// The places of all positions, counted one after the other.
std::vector<vo::Place> places(const std::u32string &text, voNlfFlags flags, vo::Place place) {
    std::vector<vo::Place> all{place};
    for (size_t i = 0; i < text.size(); ++i) {
        bool last = endsLine(text, i, flags);
        place = {place.offset + 1, place.line + last, last ? 1 : place.column + 1};
        all.push_back(place);
    }
    return all;
}

/// Texts with newlines of every kind, close together and far apart.
std::u32string randomText(std::mt19937 &random) {
    static const std::u32string newlines = U"\r\n\r\n\v\f\x85\u2028\u2029";
    static const std::u32string others = U"\t\0a\x7F\xC2\xE2\u2027\u202A\U0001F600";
    std::u32string text;
    while (text.size() < 50) {
        const std::u32string &from = random() % 2 ? newlines : others;
        text += from[random() % from.size()];
        if (random() % 16 == 0) text.append(random() % 40, U'x');
    }
    return text;
}

void expectPlace(const vo::Place &place, const vo::Place &expected) {
    ASSERT_EQ(place.offset, expected.offset);
    ASSERT_EQ(place.line, expected.line);
    ASSERT_EQ(place.column, expected.column);
}

const uint32_t *chars(const std::u32string &text) {
    return reinterpret_cast<const uint32_t *>(text.data());
}

Ref<voParserLocationMap> mapOf(voParserLocation *start, voNlfFlags flags,
                               const std::u32string &text) {
    return Ref(voParserLocationMapCreate(start, flags, chars(text), int64_t(text.size())));
}

/// Walks to some of the positions of a text, whose units begin at `begin`.
template <class Unit> void countAlong(const Unit *begin, const Unit *end,
                                      const std::vector<int64_t> &positions, voNlfFlags flags,
                                      const std::vector<vo::Place> &expected, size_t stride) {
    vo::LineCounter<Unit> counter(begin, end, flags, expected[0]);
    for (size_t i = 0; i < expected.size(); i += 1 + i % stride)
        expectPlace(counter.moveTo(begin + positions[i]), expected[i]);
}

} // namespace

TEST(Location, IsWrittenAndComparedByItsParts) {
    Ref<voParserLocation> ascending[] = {Ref(voParserLocationCreate(nullptr, 9, 1, 10)),
                                         Ref(voParserLocationCreate(nullptr, 9, 2, 3)),
                                         Ref(voParserLocationCreate(nullptr, 9, 2, 4)),
                                         Ref(voParserLocationCreate(str("a"), 0, 1, 1)),
                                         Ref(voParserLocationCreate(str("b"), 0, 1, 1))};
    for (auto &a : ascending)
        for (auto &b : ascending) {
            Ref copy(voParserLocationCreateFrom(b));
            EXPECT_EQ(voParserLocationCompare(a, copy) < 0, &a < &b);
            EXPECT_EQ(voParserLocationCompare(a, copy) > 0, &a > &b);
        }
    EXPECT_EQ(take(voParserLocationToString(ascending[2])), "2:4");
    EXPECT_EQ(take(voParserLocationToString(ascending[3])), "a:1:1");
    EXPECT_ABORT((void)Ref(voParserLocationCreate(nullptr, 0, 0, 1)), unit, "line >= 1");
}

TEST(LocationMap, CountsLikeAReaderUnderEveryFlagWord) {
    std::mt19937 random(1);
    Ref source = str("file");
    Ref start(voParserLocationCreate(source, 100, 20, 7));
    for (voNlfFlags flags = 0; flags < 256; ++flags) {
        std::u32string text = randomText(random);
        voParserLocation *origin = nullptr;
        if (flags % 2) origin = start;
        auto expected = places(text, flags, vo::placeOf(origin));
        Ref map = mapOf(origin, flags, text);
        for (size_t i = 0; i < expected.size(); ++i) {
            Ref location(voParserLocationMapLookup(map, int64_t(i)));
            expectPlace(vo::placeOf(location), expected[i]);
            Ref sourceThere(voParserLocationSource(location));
            ASSERT_EQ(bool(sourceThere), bool(origin));
        }
    }
}

TEST(LineCounter, CountsCodePointsAndUtf8Alike) {
    std::mt19937 random(2);
    for (voNlfFlags flags = 0; flags < 256; ++flags) {
        std::u32string text = randomText(random);
        auto expected = places(text, flags, {});
        std::vector<int64_t> positions{0}, bytePositions{0};
        std::string utf8;
        for (size_t i = 0; i < text.size(); ++i) {
            utf8 += test::text(str(text.substr(i, 1)));
            positions.push_back(int64_t(i) + 1);
            bytePositions.push_back(int64_t(utf8.size()));
        }
        auto *bytes = reinterpret_cast<const uint8_t *>(utf8.data());
        for (size_t stride : {size_t{1}, size_t{5}}) {
            countAlong(chars(text), chars(text) + text.size(), positions, flags, expected, stride);
            countAlong(bytes, bytes + utf8.size(), bytePositions, flags, expected, stride);
        }
    }
}

TEST(LocationMap, KnowsTheEndAndNothingBeyond) {
    Ref map = mapOf(nullptr, VO_NLF_FLAG_LF, U"a\n");
    EXPECT_EQ(take(voParserLocationToString(Ref(voParserLocationMapLookup(map, 2)))), "2:1");
    Ref empty(voParserLocationMapCreate(nullptr, 255, nullptr, 0));
    EXPECT_EQ(take(voParserLocationToString(Ref(voParserLocationMapLookup(empty, 0)))), "1:1");
    EXPECT_ABORT((void)Ref(voParserLocationMapLookup(map, 3)), unit,
                 "position >= 0 && position <= map->count");
    Ref late(voParserLocationCreate(nullptr, INT64_MAX, 1, 1));
    EXPECT_ABORT((void)Ref(voParserLocationMapLookup(mapOf(late, 1, U"a"), 1)), unit,
                 "VO_INT_ADD_OK(start.offset, position)");
}

TEST(Message, LeavesOutWhatIsAbsent) {
    const struct {
        int64_t kind;
        const char *source;
        const char *text;
    } cases[] = {{VO_MESSAGE_ERROR, "f", "f:2:3: error: broken"},
                 {VO_MESSAGE_WARNING, nullptr, "warning: broken"},
                 {VO_MESSAGE_NOTE, nullptr, "note: broken"},
                 {99, "f", "f:2:3: broken"}};
    for (auto &row : cases) {
        Ref<voParserLocation> location;
        if (row.source) location = Ref(voParserLocationCreate(str(row.source), 9, 2, 3));
        Ref message(voMessageCreateFormatCstr(row.kind, location, "%~s", -1, str("broken").take()));
        EXPECT_EQ(take(voMessageToString(message)), row.text);
        EXPECT_EQ(take(voMessageText(message)), "broken");
        EXPECT_EQ(voMessageKind(message), row.kind);
        Ref there(voMessageLocation(message));
        EXPECT_EQ(there, location);
    }
}

TEST(Message, ComparesByItsParts) {
    auto make = [](int64_t kind, int64_t line, const char *text) {
        Ref location(voParserLocationCreate(nullptr, 0, line, 1));
        return Ref(voMessageCreateFormatCstr(kind, location, text, -1));
    };
    EXPECT_TRUE(voMessageEquals(make(3, 1, "a"), make(3, 1, "a")));
    EXPECT_LT(voMessageCompare(make(2, 2, "b"), make(3, 1, "a")), 0);
    EXPECT_LT(voMessageCompare(make(3, 1, "b"), make(3, 2, "a")), 0);
    EXPECT_LT(voMessageCompare(make(3, 1, "a"), make(3, 1, "b")), 0);
}
