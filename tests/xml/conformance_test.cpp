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
        const std::string value = test::unescaped(line.substr(indent + 2));
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

void checkEncoding(const Case &row, XML_DOCUMENT *document) {
    EXPECT_EQ(test::xmlOf(document), test::readFile(row.expected(".out")));
    const std::string canonical = test::encode(document);
    const auto again = test::decode(canonical);
    ASSERT_EQ(again.error, "");
    EXPECT_EQ(test::describe(again.document), test::describe(document));
    EXPECT_EQ(test::encode(again.document), canonical);
}

void checkNamespaces(const Case &row, XML_DOCUMENT *document) {
    const auto resolved = test::nsDecode(document);
    EXPECT_EQ(resolved.error, row.ns == "OK" ? "" : row.ns);
    if (resolved.document)
        EXPECT_EQ(test::describe(resolved.document),
                  notationOf(test::readFile(row.expected(".nsdump"))));
    else
        EXPECT_EQ(std::to_string(resolved.place.offset), row.nsOffset);
}

void check(const Case &row) {
    SCOPED_TRACE(row.file);
    const std::string bytes = test::readFile(folder / row.file);
    const auto decoded = test::decode(bytes, XML_FLAG_DECODE_LOCATION);
    EXPECT_EQ(decoded.error, row.plain == "OK" ? "" : row.plain);
    EXPECT_EQ(test::decode(bytes).error, decoded.error) << "without locations";
    if (!row.offset.empty()) {
        EXPECT_EQ(std::to_string(decoded.place.offset), row.offset);
        EXPECT_EQ(decoded.place.lineAndColumn(), row.place);
    }
    if (!decoded.document) return;
    checkEncoding(row, decoded.document);
    if (!row.ns.empty()) checkNamespaces(row, decoded.document);
}

TEST(Conformance, CasesGiveWhatIsExpected) {
    if (!fs::exists(folder / "MANIFEST.tsv")) GTEST_SKIP() << "skipped: no " << folder;
    const auto cases = readCases();
    EXPECT_FALSE(cases.empty());
    for (const Case &row : cases)
        check(row);
}

} // namespace
