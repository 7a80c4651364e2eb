// Documents in and out of files.
#include "tests/xml/codec.hpp"

#include <cerrno>
#include <filesystem>
#include <fstream>

#include <stdlib.h>

namespace fs = std::filesystem;

namespace {

class DocumentFile : public testing::Test {
  protected:
    void SetUp() override {
        std::string name = fs::temp_directory_path() / "xml_file_XXXXXX";
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
        path = folder / "\u00E9.xml";
    }
    void TearDown() override { fs::remove_all(folder); }

    void write(const std::string &bytes) const { std::ofstream(path, std::ios::binary) << bytes; }

    fs::path folder;
    std::string path;
};

std::string messageOf(XML_DECODE_RESULT *result) {
    Ref error(xmlDecodeResultError(result));
    Ref message(xmlDecodeErrorToMessage(error));
    return test::take(voMessageToString(message));
}

} // namespace

TEST_F(DocumentFile, ComesBackInItsCharacterSet) {
    const std::string bytes = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE9</a>";
    write(bytes);
    int error = -1;
    Ref result(xmlDocumentTryDecodeFile(path.c_str(), nullptr, &error));
    ASSERT_TRUE(result);
    EXPECT_EQ(error, -1) << "left alone";
    Ref document(xmlDecodeResultDocument(result));
    ASSERT_TRUE(document);
    Ref location(xmlDocumentLocation(document));
    EXPECT_EQ(test::take(voParserLocationSource(location)), path);
    fs::remove(path);
    EXPECT_EQ(xmlDocumentEncodeFile(document, path.c_str(), nullptr), 0);
    EXPECT_EQ(test::readFile(path), bytes);
}

TEST_F(DocumentFile, EveryDecodeErrorHasAPlaceInTheFile) {
    int error = 0;
    write("<?xml version='1.0'?>\n<a>\n</b>");
    Ref result(xmlDocumentTryDecodeFile(path.c_str(), nullptr, &error));
    EXPECT_EQ(messageOf(result), path + ":3:1: error: mismatched opening/closing XML tags");
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), XML_FLAG_DECODE_LOCATION);
    result = Ref(xmlDocumentTryDecodeFile(path.c_str(), options, &error));
    EXPECT_EQ(messageOf(result), path + ":3:1: error: mismatched opening/closing XML tags");
    write("");
    result = Ref(xmlDocumentTryDecodeFile(path.c_str(), nullptr, &error));
    EXPECT_EQ(messageOf(result), path + ":1:1: error: invalid charset encoding");
}

TEST_F(DocumentFile, WhatCannotBeWrittenLeavesTheFile) {
    write("old");
    auto document = test::decode("<?xml version='1.0' encoding='US-ASCII'?><a/>").document;
    auto other = test::decode("<?xml version='1.0'?><a>\u00E9</a>").document;
    xmlDocumentSetCharset(other.edit(), VO_CHARSET_US_ASCII);
    EXPECT_EQ(xmlDocumentEncodeFile(other, path.c_str(), nullptr), XML_FILE_ERROR_CHARSET);
    EXPECT_EQ(test::readFile(path), "old");
    EXPECT_EQ(xmlDocumentEncodeFile(document, (folder / "none" / "a").c_str(), nullptr), ENOENT);
    int error = 0;
    EXPECT_EQ(xmlDocumentTryDecodeFile((folder / "none").c_str(), nullptr, &error), nullptr);
    EXPECT_EQ(error, ENOENT);
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
    EXPECT_EQ(xmlDocumentEncodeFile(document, path.c_str(), options), 0);
    EXPECT_EQ(test::readFile(path), "<a/>");
}
