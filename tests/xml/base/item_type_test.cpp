#include "source/xml/base/xml_module.hpp"
#include "tests/support.hpp"
#include "xml/xml_item_type.h"

TEST(ItemType, HasANameForEveryValue) {
#define ROW(type)                                                                                  \
    { type, #type }
    const std::pair<XML_ITEM_TYPE, const char *> rows[] = {
        ROW(XML_ITEM_TYPE_ELEMENT), ROW(XML_ITEM_TYPE_PROCESSING_INSTRUCTION),
        ROW(XML_ITEM_TYPE_COMMENT), ROW(XML_ITEM_TYPE_TEXT), ROW(XML_ITEM_TYPE_CDATA)};
#undef ROW
    for (XML_ITEM_TYPE expected = 0; auto [type, name] : rows) {
        EXPECT_EQ(type, expected++);
        EXPECT_EQ(test::take(xmlItemTypeToString(type)), name);
        EXPECT_EQ(xmlItemTypeFromString(test::str(name)), type);
    }
    EXPECT_EQ(xmlItemTypeFromString(test::str("xml_item_type_text")), -1);
}

TEST(ItemType, AbortsForOtherValues) {
    const char *file = "source/xml/base/xml_item_type.cpp";
    for (XML_ITEM_TYPE it : {-1, 5})
        EXPECT_ABORT(Ref made(xmlItemTypeToString(it)), file, "XML_ITEM_TYPE_OK( it )");
    EXPECT_ABORT(xmlItemTypeFromString(nullptr), file, "vos");
}
