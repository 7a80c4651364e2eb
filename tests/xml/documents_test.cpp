// The documents under tests/data, from bytes to bytes and to the tree with namespaces. The head of
// tests/data/accepted.txt tells how they are written.
#include "tests/xml/codec.hpp"

#include <fstream>
#include <map>

using namespace test;

namespace {

/// One paragraph of a file: lines that begin with a key of eight characters, by their keys.
struct Case {
    std::string where;
    std::map<std::string, std::string> lines;

    /// The line's text; nothing where there is no such line.
    std::string at(const std::string &key) const {
        const auto found = lines.find(key);
        return found == lines.end() ? "" : found->second;
    }
};

std::vector<Case> readCases(const std::string &file) {
    std::ifstream input(std::filesystem::path(VOXML_TEST_DATA) / file);
    std::vector<Case> cases;
    bool inside = false;
    int number = 0;
    for (std::string line; std::getline(input, line); inside = !line.empty()) {
        ++number;
        if (line.starts_with('#')) line.clear();
        if (line.empty()) continue;
        if (!inside) cases.push_back({file + ":" + std::to_string(number), {}});
        cases.back().lines[line.substr(0, line.find(' '))] =
            line.size() > 8 ? line.substr(8) : std::string();
    }
    return cases;
}

std::string errorOf(const auto &outcome) {
    return outcome.error + " " + std::to_string(outcome.place.offset) + " " +
           outcome.place.lineAndColumn() + " " + outcome.message;
}

void checkTree(const Case &row, XML_DOCUMENT *document) {
    const auto resolved = nsDecode(document);
    if (!resolved.document) {
        EXPECT_EQ(errorOf(resolved), row.at("error"));
        return;
    }
    EXPECT_EQ(describe(resolved.document), row.at("tree"));
    const auto again = nsDecode(Ref(xmlNsDocumentEncode(resolved.document))).document;
    EXPECT_EQ(describe(again, Declarations::leftOut),
              describe(resolved.document, Declarations::leftOut));
}

void checkDocument(const Case &row) {
    SCOPED_TRACE(row.where);
    const std::string bytes = unescaped(row.at("decode"));
    const auto decoded = decode(bytes, XML_FLAG_DECODE_LOCATION);
    EXPECT_EQ(decode(bytes).error, decoded.error) << "without locations";
    const std::string expected = unescaped(row.at("encode"));
    if (!decoded.document || expected.empty()) {
        EXPECT_EQ(decoded.document ? "accepted" : errorOf(decoded), row.at("error"));
        EXPECT_TRUE(expected.empty());
        return;
    }
    EXPECT_EQ(encode(decoded.document), expected);
    EXPECT_EQ(encode(decode(expected).document), expected) << "encoded again";
    checkTree(row, decoded.document);
}

} // namespace

TEST(Documents, GiveWhatTheirFilesSay) {
    for (const char *file : {"accepted.txt", "charsets.txt", "namespaces.txt", "refused.txt"}) {
        const auto cases = readCases(file);
        EXPECT_GT(cases.size(), 10) << file;
        for (const Case &row : cases)
            checkDocument(row);
    }
}

TEST(Documents, AreMadeOfTreesAsTheirFileSays) {
    const auto cases = readCases("encoded.txt");
    EXPECT_GT(cases.size(), 10);
    for (const Case &row : cases)
        EXPECT_EQ(xmlOf(Ref(xmlNsDocumentEncode(tree(row.at("tree"))))), row.at("encode"))
            << row.where;
}
