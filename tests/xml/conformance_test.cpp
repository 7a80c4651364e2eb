// Runs the conformance cases that lie beside the project, where they do.
#include "tests/xml/codec.hpp"

#include <fstream>
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
        cases.push_back({columns[0], columns[2], columns[3], columns[4], columns[5], columns[6]});
    }
    return cases;
}

std::string unescaped(std::string_view escaped) {
    std::string plain;
    for (size_t i = 0; i < escaped.size(); ++i)
        plain += escaped[i] == '\\' ? "\n\r\t\\"[std::string_view("nrt\\").find(escaped[++i])]
                                    : escaped[i];
    return plain;
}

/// The name of a line, {namespace}local, in the notation.
std::string nameOf(const std::string &name) {
    const size_t end = name.starts_with('{') ? name.find('}') : name.npos;
    return test::word(end == name.npos ? name
                                       : name.substr(1, end - 1) + ":" + name.substr(end + 1));
}

/// The notation of a tree that the cases give in lines: one for each node, by two blanks a level.
std::string notationOf(const std::string &view) {
    std::istringstream lines(view);
    std::string all, parentheses;
    for (std::string line; std::getline(lines, line);) {
        if (line.empty()) continue;
        const size_t indent = line.find_first_not_of(' ');
        for (; parentheses.size() > indent / 2; parentheses.pop_back())
            all += ")";
        const std::string value = unescaped(std::string_view(line).substr(indent + 2));
        if (!all.empty()) all += " ";
        const size_t equals = value.find('=', value.starts_with('{') ? value.find('}') : 0);
        switch (line[indent]) {
        case 'E':
            all += "(" + nameOf(value);
            parentheses += ")";
            break;
        case 'A':
            all +=
                "@" + nameOf(value.substr(0, equals)) + "=" + test::word(value.substr(equals + 1));
            break;
        case 'T':
            all += test::inApostrophes(value);
            break;
        default:
            all += "+?!#"[std::string_view("NPCD").find(line[indent])] + test::word(value);
        }
    }
    return all + parentheses;
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

TEST_F(Conformance, PlainResultsHaveTheExpectedCodeAndPlace) {
    for (const Case &row : cases) {
        SCOPED_TRACE(row.file);
        std::string bytes = test::readFile(folder / row.file);
        auto decoded = test::decode(bytes, XML_FLAG_DECODE_LOCATION);
        EXPECT_EQ(decoded.error, row.plain == "OK" ? "" : row.plain);
        if (!row.offset.empty()) {
            EXPECT_EQ(std::to_string(decoded.place.offset), row.offset);
            EXPECT_EQ(decoded.place.lineAndColumn(), row.place);
        }
        EXPECT_EQ(test::decode(bytes).error, decoded.error) << "without locations";
    }
}

TEST_F(Conformance, EncodingGivesTheExpectedBytesAndIsAFixedPoint) {
    for (const Case &row : cases) {
        if (row.plain != "OK") continue;
        SCOPED_TRACE(row.file);
        auto first = test::decode(test::readFile(folder / row.file));
        if (!first.document) continue; // reported above
        EXPECT_EQ(test::xmlOf(first.document), test::readFile(row.expected(".out")));
        std::string canonical = test::encode(first.document);
        auto second = test::decode(canonical);
        ASSERT_EQ(second.error, "");
        EXPECT_EQ(test::describe(second.document), test::describe(first.document));
        EXPECT_EQ(test::encode(second.document), canonical);
    }
}

TEST_F(Conformance, NamespaceResultsHaveTheExpectedCodeAndPlace) {
    for (const Case &row : cases) {
        if (row.ns.empty()) continue;
        SCOPED_TRACE(row.file);
        auto plain = test::decode(test::readFile(folder / row.file), XML_FLAG_DECODE_LOCATION);
        if (!plain.document) continue; // reported above
        auto decoded = test::nsDecode(plain.document);
        EXPECT_EQ(decoded.error, row.ns == "OK" ? "" : row.ns);
        if (decoded.document) {
            EXPECT_EQ(test::describe(decoded.document),
                      notationOf(test::readFile(row.expected(".nsdump"))));
        } else {
            EXPECT_EQ(std::to_string(decoded.place.offset), row.nsOffset);
        }
    }
}

} // namespace
