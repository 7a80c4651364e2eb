// Round trips over a folder of real files, named by the environment variable VOXML_CORPUS.
#include "tests/xml/corpus.hpp"

#include <map>

namespace {

namespace fs = std::filesystem;

using Corpus = test::CorpusTest;

TEST_F(Corpus, EveryFileComesBackOrIsRefusedForADocumentedReason) {
    std::map<std::string, int> refusals;
    int accepted = 0;
    for (const fs::path &path : files) {
        SCOPED_TRACE(path.string());
        auto first = test::decode(test::readFile(path));
        if (!first.document) {
            ++refusals[first.error];
            continue;
        }
        ++accepted;
        std::string canonical = test::encode(first.document);
        auto second = test::decode(canonical);
        ASSERT_TRUE(second.document) << second.error;
        EXPECT_TRUE(test::describe(second.document) == test::describe(first.document));
        EXPECT_TRUE(test::encode(second.document) == canonical);
    }
    std::printf("%d files accepted", accepted);
    for (const auto &[code, count] : refusals)
        std::printf(", %d refused with %s", count, code.c_str());
    std::printf("\n");
    // What else real files have that this library refuses: character references in text, and
    // comments that begin with a hyphen.
    for (const auto &refusal : refusals)
        EXPECT_TRUE(refusal.first == "TEXT" || refusal.first == "COMMENT") << refusal.first;
}

TEST_F(Corpus, NamespacesComeBack) {
    int refused = 0;
    for (const fs::path &path : files) {
        SCOPED_TRACE(path.string());
        auto first = test::decode(test::readFile(path));
        if (!first.document) continue;
        auto resolved = test::nsDecode(first.document);
        refused += !resolved.document;
        if (!resolved.document) continue;
        Ref plain(xmlNsDocumentEncode(resolved.document));
        auto second = test::decode(test::encode(plain));
        ASSERT_TRUE(second.document) << second.error;
        auto again = test::nsDecode(second.document);
        ASSERT_TRUE(again.document) << again.error;
        EXPECT_TRUE(test::describe(again.document) == test::describe(resolved.document));
    }
    std::printf("%d files refused\n", refused);
}

/// Where each code point of a text stands, counted one by one.
struct Places {
    std::vector<std::pair<int64_t, int64_t>> lineAndColumn;

    explicit Places(voString *text) {
        const uint32_t *chars = voStringBacking(text);
        const int64_t length = voStringLength(text);
        int64_t line = 1, column = 1;
        for (int64_t i = 0; i < length; ++i) {
            lineAndColumn.emplace_back(line, column++);
            const uint32_t c = chars[i];
            const bool crlf = c == '\r' && i + 1 < length && chars[i + 1] == '\n';
            if ((c >= 0xA && c <= 0xD && !crlf) || c == 0x85 || c == 0x2028 || c == 0x2029)
                ++line, column = 1;
        }
    }
};

Ref<voParserLocation> locationOf(XML_ITEM *item) {
    if (Ref el(xmlItemElement(item)); el) return Ref(xmlElementLocation(el));
    if (Ref text(xmlItemText(item)); text) return Ref(xmlTextLocation(text));
    if (Ref comment(xmlItemComment(item)); comment) return Ref(xmlCommentLocation(comment));
    if (Ref cdata(xmlItemCdata(item)); cdata) return Ref(xmlCdataLocation(cdata));
    return Ref(xmlProcessingInstructionLocation(Ref(xmlItemProcessingInstruction(item))));
}

/// What must stand at the place of an item.
std::string beginningOf(XML_ITEM *item) {
    switch (xmlItemType(item)) {
    case XML_ITEM_TYPE_ELEMENT:
        return "<" + test::take(xmlElementName(Ref(xmlItemElement(item))));
    case XML_ITEM_TYPE_TEXT:
        return test::take(xmlItemTextValue(item));
    case XML_ITEM_TYPE_COMMENT:
        return "<!--";
    case XML_ITEM_TYPE_CDATA:
        return "<![CDATA[";
    default:
        return "<?";
    }
}

void expectPlace(voParserLocation *location, const std::string &beginning, voString *text,
                 const Places &places) {
    ASSERT_TRUE(location);
    const int64_t offset = voParserLocationOffset(location);
    ASSERT_LT(offset, voStringLength(text));
    const std::pair place(voParserLocationLine(location), voParserLocationColumn(location));
    ASSERT_EQ(place, places.lineAndColumn[size_t(offset)]);
    Ref wanted = test::str(beginning);
    ASSERT_EQ(voStringFindChars(text, offset, voStringBacking(wanted), voStringLength(wanted)),
              offset);
}

TEST_F(Corpus, LocationsAgreeWithACountOneByOne) {
    for (size_t i = 0; i < files.size(); i += 20) {
        SCOPED_TRACE(files[i].string());
        std::string bytes = test::readFile(files[i]);
        if (bytes.size() > 2000000) continue;
        auto decoded = test::decode(bytes, XML_FLAG_DECODE_LOCATION);
        if (!decoded.document) continue;
        Ref text(voCharsetTryConvertBufferToStringWithFlags(
            xmlDocumentCharset(decoded.document), test::buffer(bytes), VO_CHARSET_FLAG_BOM));
        const Places places(text);
        const auto visit = [&](XML_ITEM *item) {
            if (testing::Test::HasFatalFailure()) return;
            expectPlace(locationOf(item), beginningOf(item), text, places);
            Ref el(xmlItemElement(item));
            for (int64_t j = 0; el && j < xmlElementAttributesLength(el); ++j) {
                Ref attr(xmlElementAttributeAt(el, j));
                expectPlace(Ref(xmlAttributeLocation(attr)), test::take(xmlAttributeName(attr)),
                            text, places);
            }
        };
        test::visitItems<test::Plain>(Ref(xmlDocumentItems(decoded.document)), visit);
    }
}

} // namespace
