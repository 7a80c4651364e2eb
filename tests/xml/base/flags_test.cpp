#include "source/xml/base/xml_module.hpp"
#include "tests/support.hpp"
#include "xml/xml_flags.h"

TEST(Flags, ConvertToTextAndBack) {
    const std::pair<XML_FLAGS, const char *> rows[] = {
        {0, ""},
        {XML_FLAG_DECODE_LOCATION, "XML_FLAG_DECODE_LOCATION"},
        {XML_FLAG_ENCODE_OMIT_XML_DECLARATION, "XML_FLAG_ENCODE_OMIT_XML_DECLARATION"},
        {3, "XML_FLAG_DECODE_LOCATION|XML_FLAG_ENCODE_OMIT_XML_DECLARATION"},
    };
    for (auto [flags, text] : rows) {
        EXPECT_EQ(test::take(xmlFlagsToString(flags)), text);
        EXPECT_EQ(xmlFlagsFromString(test::str(text)), flags);
    }
}

TEST(Flags, DropWhatIsNotAFlag) {
    EXPECT_EQ(xmlFlagsNormalize(~XML_FLAGS{0}), 3U);
    EXPECT_EQ(test::take(xmlFlagsToString(4)), "");
    EXPECT_EQ(xmlFlagsFromString(test::str("no flag | XML_FLAG_DECODE_LOCATION")), 1U);
    EXPECT_ABORT(xmlFlagsFromString(nullptr), "source/xml/base/xml_flags.cpp", "vos");
}
