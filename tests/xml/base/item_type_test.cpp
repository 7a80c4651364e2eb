#include "tests/support.hpp"
#include "xml/xml_item_type.h"

using namespace test;

TEST(ItemType, HasANameForEveryValue) {
    for (XML_ITEM_TYPE type = 0; XML_ITEM_TYPE_OK(type); ++type)
        EXPECT_EQ(xmlItemTypeFromString(Ref(xmlItemTypeToString(type))), type);
    EXPECT_EQ(take(xmlItemTypeToString(XML_ITEM_TYPE_PROCESSING_INSTRUCTION)),
              "XML_ITEM_TYPE_PROCESSING_INSTRUCTION");
    EXPECT_EQ(xmlItemTypeFromString(str("xml_item_type_text")), -1);
}

TEST(ItemType, AbortsForOtherValues) {
    for (XML_ITEM_TYPE it : {-1, 5})
        EXPECT_ABORT(Ref made(xmlItemTypeToString(it)), "source/xml/base/xml_item_type.cpp",
                     "XML_ITEM_TYPE_OK( it )");
}
