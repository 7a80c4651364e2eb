// The two ways of reading a text, and both widths of records, give the same outline, and no byte
// behind the text is read.
#include "source/xml/base/xml_input.hpp"
#include "tests/xml/codec.hpp"
#include "tests/xml/mutator.hpp"
#include "tests/xml/outline/guarded_memory.hpp"
#include "tests/xml/outline/reading_check.hpp"
#include "tests/xml/random_xml.hpp"

namespace {

#if TEST_SANITIZED
constexpr int scale = 10;
#else
constexpr int scale = 1;
#endif

test::GuardedMemory memory(1 << 21);

/// Texts that are not UTF-8 never come to be read.
void expectNoDifference(std::string_view text) {
    const xml::Piece piece = memory.place(text);
    if (!test::isUtf8(piece)) return;
    const std::string found = test::differenceInReading(piece);
    EXPECT_EQ(found, "") << text;
}

std::string replaced(std::string text, std::string_view what, std::string_view by) {
    for (size_t at = 0; (at = text.find(what, at)) != text.npos; at += by.size())
        text.replace(at, what.size(), by);
    return text;
}

/// Every text that begins like this one.
void expectNoDifferenceWhereverItEnds(std::string_view text) {
    for (size_t length = 0; length <= text.size(); ++length)
        expectNoDifference(text.substr(0, length));
}

const std::string declaration = "<?xml version='1.0'?>";

} // namespace

TEST(Reading, TheWaysAgreeOnNamesAndValuesOfEveryLengthWhereverTheTextEnds) {
    const std::string rows[] = {
        "<N/><N a=\"V\"/><L/><N/>more",
        "<N><N N=\"V\"></N>V</N><N></L>",
        "<a N=\"V\" M='V'/><a N=\"V\" M='V'/><a N=\"V\" L=\"\"/><a L=\"\"/>",
        "<N>V<M>V</M><M ></M></N ><N/>",
    };
    for (size_t length = 1; length <= 70; length += length < 40 / scale ? 1 : scale) {
        const std::string name(length, 'n'), value(length - 1, 'v');
        for (const std::string &row : rows) {
            std::string text = replaced(replaced(row, "N", name), "V", value);
            text = replaced(replaced(text, "M", name + 'm'), "L", name.substr(1) + 'l');
            expectNoDifferenceWhereverItEnds(declaration + text +
                                             std::string(64 - length % 32, ' '));
        }
    }
}

TEST(Reading, TheWaysAgreeOnSpaceAndReferencesWhereverTheTextEnds) {
    const std::string rows[] = {
        "<aSbS=S'x'S/S><aSbS=S\"x\"ScS=S'y'S>S</S aS>",
        "<a b='R'Sc=\"R\"/>R<a b=\"x\"></a>R<aSb=\"xRx\">RSR</a>",
        "<a>S<!--R--><?p R?><![CDATA[R]]>S</a>",
    };
    for (std::string space : {"", " ", "\n", "  ", "\r\n\t ", "                 "})
        for (std::string reference : {"&lt;", "&#65;", "&", "&#;", "&a.b-c;", "<", "\u00E9", "\"'"})
            for (const std::string &row : rows)
                expectNoDifferenceWhereverItEnds(
                    declaration + replaced(replaced(row, "S", space), "R", reference) +
                    std::string(70, '\n'));
}

TEST(Reading, TheWaysAgreeOnDocumentsAtRandom) {
    test::RandomXml documents(1);
    test::Mutator mutator(2);
    std::string last;
    for (int i = 0; i < 8000 / scale; ++i) {
        std::string text = documents.document(i % 2000 ? i % 60 : 20000);
        expectNoDifference(text);
        for (int change = 0; change < 3; ++change)
            expectNoDifference(mutator.changed(text, last));
        last = std::move(text);
    }
}

TEST(Reading, TheWaysAgreeOnChangedConformanceFiles) {
    const std::filesystem::path folder = VOXML_CONFORMANCE;
    if (!exists(folder)) GTEST_SKIP() << "skipped: no " << folder;
    test::Mutator mutator(3);
    std::string last;
    for (const auto &file : std::filesystem::recursive_directory_iterator(folder)) {
        if (!file.is_regular_file() || file.file_size() > memory.size() / 4) continue;
        const auto input = xml::readInput(test::buffer(test::readFile(file)), VO_CHARSET_FLAG_BOM);
        if (!input.buffer) continue;
        std::string text(input.text.bytes());
        expectNoDifference(text);
        for (int change = 0; change < 40 / scale; ++change)
            expectNoDifference(mutator.changed(text, last));
        last = std::move(text);
    }
}
