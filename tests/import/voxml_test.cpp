// The importer in C++.
#include <gtest/gtest.h>
#include <voxml.hpp>

namespace {

TEST(Import, DocumentsAndFailuresComeAsResults) {
    auto doc = voxml::import_document("<!DOCTYPE a [<!ENTITY e 'f'>]><a>&e;&#33;</a>");
    ASSERT_TRUE(doc);
    EXPECT_EQ(doc->root()->text(), "f!");

    auto refused = voxml::import_document("<a>\n\xC3\xA9</b>", {.source = "a.xml"});
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code(), voxml::errc::not_well_formed);
    EXPECT_EQ(refused.error().to_string(), "a.xml:2:4: error: mismatched tag");
    EXPECT_EQ(refused.error().byte_offset(), 8);
}

} // namespace
