#include "source/xml/base/xml_char.hpp"
#include "tests/support.hpp"

namespace {

/// Where a class begins or ends: the first code points of its runs and of the gaps between them.
std::vector<uint32_t> changes(int (*isMember)(uint32_t)) {
    std::vector<uint32_t> found;
    for (uint32_t c = 0, was = 0; c <= 0x110000; was = uint32_t(isMember(c)), ++c)
        if (uint32_t(isMember(c)) != was) found.push_back(c);
    return found;
}

TEST(Char, ClassesAreThoseOfXml) {
    using List = std::vector<uint32_t>;
    EXPECT_EQ(changes(xml___CharIsSpace), (List{9, 0xB, 0xD, 0xE, 0x20, 0x21}));
    EXPECT_EQ(changes(xml___CharIsNameStartChar),
              (List{':',    ';',    'A',    '[',    '_',    '`',    'a',     '{',
                    0xC0,   0xD7,   0xD8,   0xF7,   0xF8,   0x300,  0x370,   0x37E,
                    0x37F,  0x2000, 0x200C, 0x200E, 0x2070, 0x2190, 0x2C00,  0x2FF0,
                    0x3001, 0xD800, 0xF900, 0xFDD0, 0xFDF0, 0xFFFE, 0x10000, 0xF0000}));
    EXPECT_EQ(changes(xml___CharIsNameChar),
              (List{'-',    '/',    '0',    ';',    'A',    '[',    '_',    '`',     'a',
                    '{',    0xB7,   0xB8,   0xC0,   0xD7,   0xD8,   0xF7,   0xF8,    0x37E,
                    0x37F,  0x2000, 0x200C, 0x200E, 0x203F, 0x2041, 0x2070, 0x2190,  0x2C00,
                    0x2FF0, 0x3001, 0xD800, 0xF900, 0xFDD0, 0xFDF0, 0xFFFE, 0x10000, 0xF0000}));
    EXPECT_EQ(changes(xml___CharIsPubidChar), (List{0xA, 0xB, 0xD, 0xE, ' ', '"', '#', '&', '\'',
                                                    '<', '=', '>', '?', '[', '_', '`', 'a', '{'}));
}

} // namespace
