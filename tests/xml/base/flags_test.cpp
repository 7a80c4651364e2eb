#include "source/xml/base/xml_module.hpp"
#include "tests/support.hpp"
#include "xml/xml_flags.h"

TEST(Flags, ConvertToTextAndBack) {
    for (XML_FLAGS flags = 0; flags < 4; ++flags)
        EXPECT_EQ(xmlFlagsFromString(Ref(xmlFlagsToString(flags))), flags);
    EXPECT_EQ(test::take(xmlFlagsToString(3)),
              "XML_FLAG_DECODE_LOCATION|XML_FLAG_ENCODE_OMIT_XML_DECLARATION");
}

TEST(Flags, DropWhatIsNotAFlag) {
    EXPECT_EQ(xmlFlagsNormalize(~XML_FLAGS{0}), 3U);
    EXPECT_EQ(test::take(xmlFlagsToString(4)), "");
    EXPECT_EQ(xmlFlagsFromString(test::str("no flag | XML_FLAG_DECODE_LOCATION")), 1U);
}
