// The importer in C++.
#include <gtest/gtest.h>
#include <voxml.hpp>

#include <cerrno>
#include <cstdio>
#include <fstream>

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

    const std::string path = testing::TempDir() + "voxml-import.xml";
    EXPECT_EQ(voxml::import_file(path).error().system_error(), ENOENT);
    std::ofstream(path) << "<a>";
    EXPECT_EQ(voxml::import_file(path).error().to_string(), path + ":1:4: error: no element found");
    std::ofstream(path) << "<!DOCTYPE a><a/>";
    EXPECT_EQ(voxml::import_file(path)->root()->name(), "a");
    std::remove(path.c_str());
}

} // namespace
