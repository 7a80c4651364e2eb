// Runs the conformance cases that lie beside the project, where they do.
#include "tests/xml/codec.hpp"

#include <fstream>
#include <map>
#include <sstream>

namespace {

namespace fs = std::filesystem;

const fs::path folder = VOXML_CONFORMANCE;

struct Case {
    std::string file, plain, offset, place, ns, nsOffset;

    /// The file that holds the expected output of the given kind.
    fs::path expected(std::string_view kind) const {
        fs::path path(file);
        fs::path stem = path.stem();
        fs::path group = path.parent_path();
        return folder / group.parent_path() / "expected" /
               (group.filename().string() + "__" + stem.string() + std::string(kind));
    }
};

/// Cases whose expectation differs from what this library gives, with the reason.
const std::map<std::string, std::string> differences = {};

std::vector<Case> readCases() {
    std::ifstream manifest(folder / "MANIFEST.tsv");
    std::vector<Case> cases;
    std::string line;
    std::getline(manifest, line);
    while (std::getline(manifest, line)) {
        std::vector<std::string> columns;
        std::istringstream fields(line);
        for (std::string field; std::getline(fields, field, '\t');)
            columns.push_back(field);
        columns.resize(20);
        if (differences.count(columns[0])) continue;
        cases.push_back({columns[0], columns[2], columns[3], columns[4], columns[5], columns[6]});
    }
    return cases;
}

class Conformance : public testing::Test {
  protected:
    void SetUp() override {
        if (!fs::exists(folder / "MANIFEST.tsv")) GTEST_SKIP() << "skipped: no " << folder;
        cases = readCases();
        ASSERT_FALSE(cases.empty());
    }
    std::vector<Case> cases;
};

TEST_F(Conformance, plain_results_have_the_expected_code_and_place) {
    for (const Case &row : cases) {
        SCOPED_TRACE(row.file);
        std::string bytes = test::readFile(folder / row.file);
        auto decoded = test::decode(bytes, XML_FLAG_DECODE_LOCATION);
        EXPECT_EQ(decoded.error, row.plain == "OK" ? "" : row.plain);
        if (!row.offset.empty()) {
            EXPECT_EQ(std::to_string(decoded.offset), row.offset);
            EXPECT_EQ(decoded.place(), row.place);
        }
        EXPECT_EQ(test::decode(bytes).error, decoded.error) << "without locations";
    }
}

TEST_F(Conformance, encoding_gives_the_expected_bytes_and_is_a_fixed_point) {
    for (const Case &row : cases) {
        if (row.plain != "OK") continue;
        SCOPED_TRACE(row.file);
        auto first = test::decode(test::readFile(folder / row.file));
        if (!first.document) continue; // reported above
        EXPECT_EQ(test::encodeItemsAsUtf8(first.document), test::readFile(row.expected(".out")));
        std::string canonical = test::encode(first.document);
        auto second = test::decode(canonical);
        ASSERT_EQ(second.error, "");
        EXPECT_EQ(test::dump(second.document), test::dump(first.document));
        EXPECT_EQ(test::encode(second.document), canonical);
    }
}

TEST_F(Conformance, namespace_results_have_the_expected_code_and_place) {
    for (const Case &row : cases) {
        if (row.ns.empty()) continue;
        SCOPED_TRACE(row.file);
        auto plain = test::decode(test::readFile(folder / row.file), XML_FLAG_DECODE_LOCATION);
        if (!plain.document) continue; // reported above
        auto decoded = test::nsDecode(plain.document);
        EXPECT_EQ(decoded.error, row.ns == "OK" ? "" : row.ns);
        if (decoded.document) {
            // The views end in a newline also where they are empty.
            std::string view = test::dump(decoded.document);
            EXPECT_EQ(view.empty() ? "\n" : view, test::readFile(row.expected(".nsdump")));
        } else {
            EXPECT_EQ(std::to_string(decoded.offset), row.nsOffset);
        }
    }
}

} // namespace
