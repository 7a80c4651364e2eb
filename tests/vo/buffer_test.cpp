#include "tests/support.hpp"

#include <cstring>

using test::buffer;
using test::bytes;

TEST(Buffer, ComparesByteByByteThenByLength) {
    const std::string_view ascending[] = {"", "a", "ab", "b", "\x80"};
    for (auto &a : ascending)
        for (auto &b : ascending) {
            int64_t order = voBufferCompare(buffer(a), buffer(b));
            EXPECT_EQ(order < 0, &a < &b);
            EXPECT_EQ(order > 0, &a > &b);
        }
}

TEST(Buffer, KeepsAPartForItsHolderOnly) {
    Ref whole = buffer("abcdef");
    Ref part(voBufferRetain(whole));
    voBufferDelOuter(part.edit(), 1, 4);
    EXPECT_EQ(bytes(part), "bcde");
    voBufferDelOuter(part.edit(), 1, 2);
    EXPECT_EQ(bytes(part), "cd");
    voBufferDelOuter(part.edit(), 2, 0);
    EXPECT_EQ(bytes(part), "");
    EXPECT_EQ(bytes(whole), "abcdef");
    EXPECT_EQ(bytes(Ref(voBufferCreateFromBytesCopy(nullptr, 0))), "");
    EXPECT_ABORT(voBufferDelOuter(whole.edit(), 3, INT64_MAX), "source/vo/vo_buffer.cpp",
                 "count >= 0 && count <= (*buffer)->length - offset");
    EXPECT_ABORT(voBufferDelOuter(whole.edit(), 7, 0), "source/vo/vo_buffer.cpp",
                 "offset >= 0 && offset <= (*buffer)->length");
}

TEST(Memory, RefusesWhatDoesNotFit) {
    const char *unit = "source/vo/vo_memory.cpp";
    EXPECT_ABORT(voMemAllocN(-1, 4), unit, "count >= 0");
    EXPECT_ABORT(voMemAllocN(INT64_MAX / 2, 4), unit, "VO_INT_MUL_OK(count, size)");
    EXPECT_ABORT(voMemAllocN(INT64_MAX, 1), unit, "chars <= mostItems<voString>");
    voMemFree(nullptr);
    voMemFree(voMemAllocN(0, 0));
}

TEST(Memory, HasRoomForEveryByte) {
    for (int64_t size = 1; size < 100; ++size) {
        void *block = voMemAllocN(1, size);
        std::memset(block, 1, size_t(size));
        voMemFree(block);
    }
}

TEST(Memory, CopiesElements) {
    const uint32_t from[] = {1, 2, 3};
    uint32_t to[] = {9, 9, 9};
    voMemCopyN(to, from, 2, 4);
    EXPECT_EQ(to[1], 2u);
    EXPECT_EQ(to[2], 9u);
    voMemCopyN(nullptr, nullptr, 0, 4);
}

TEST(Format, ReadsTheDigitsThatFit) {
    const struct {
        const char32_t *text;
        int64_t radix, value, used;
    } cases[] = {
        {U"0", 10, 0, 1},
        {U"123x", 10, 123, 3},
        {U"fFg", 16, 255, 2},
        {U"zZ", 36, 35 * 36 + 35, 2},
        {U"12", 2, 1, 1},
        {U"9223372036854775807", 10, INT64_MAX, 19},
        {U"9223372036854775808", 10, -1, 0},
        {U"7fffffffffffffff", 16, INT64_MAX, 16},
        {U"8000000000000000", 16, -1, 0},
        {U"000000000000000000000000000000000012", 10, 12, 36},
        {U"", 10, -1, 0},
        {U"-1", 10, -1, 0},
        {U"x", 16, -1, 0},
        {U"\x131", 10, -1, 0},
        {U"\U00010030", 10, -1, 0},
    };
    for (auto &row : cases) {
        int64_t value = -1, used = 0;
        std::u32string_view text(row.text);
        int ok = voFormatTryDecodeIntChars(reinterpret_cast<const uint32_t *>(text.data()),
                                           int64_t(text.size()), row.radix, &value, &used);
        EXPECT_EQ(ok, row.used > 0);
        EXPECT_EQ(value, row.value);
        EXPECT_EQ(used, row.used);
    }
}
