#include "tests/xml/corpus.hpp"

namespace {

constexpr XML_LAYOUT usual{2, 0};

std::string formatted(XML_DOCUMENT *document, XML_LAYOUT layout = usual, XML_FLAGS flags = 0) {
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), flags);
    Ref bytes(xmlDocumentTryEncodeFormatted(document, &layout, options));
    return bytes ? test::bytes(bytes) : "<null>";
}

/// The layout of a content, without the declaration; laying it out again must not change it.
std::string laidOut(const std::string &xml, XML_LAYOUT layout = usual) {
    const std::string declared = "<?xml version='1.0'?>" + xml;
    const auto first = test::decode(declared);
    EXPECT_EQ(first.error, "");
    const std::string once = formatted(first.document, layout);
    EXPECT_EQ(formatted(test::decode(once).document, layout), once);
    const std::string bare =
        formatted(first.document, layout, XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
    EXPECT_TRUE(once.ends_with(bare)) << once << bare;
    return bare;
}

struct Row {
    std::string xml, laidOut;
};

TEST(Format, WhatHoldsElementsIsLaidOutAndOtherContentStays) {
    const Row rows[] = {
        {"<a/>", "<a/>\n"},
        {"\n\n<a><b/><c><d/></c></a>", "<a>\n  <b/>\n  <c>\n    <d/>\n  </c>\n</a>\n"},
        {"<?p i?><a></a><!--c--><b/>", "<?p i?>\n<a/>\n<!--c-->\n<b/>\n"},
        {"<a><b>text</b><c> </c></a>", "<a>\n  <b>text</b>\n  <c> </c>\n</a>\n"},
        {"<a>1<b>\n<c/> </b></a>", "<a>1<b>\n<c/> </b></a>\n"},
        {"<a><b/>&lt;<c/></a>", "<a><b/>&lt;<c/></a>\n"},
        {"<a> <b/>&e;</a>", "<a> <b/>&e;</a>\n"},
        {"<a> <![CDATA[]]><b/> </a>", "<a> <![CDATA[]]><b/> </a>\n"},
        {"<a><!--c--></a><b> <?p?></b>", "<a><!--c--></a>\n<b>\n  <?p?>\n</b>\n"},
        {"<a><!--c--><b/></a>", "<a>\n  <!--c-->\n  <b/>\n</a>\n"},
        // Text at the top.
        {"<a/> text <b><c/></b>", "<a/> text <b><c/></b>\n"},
        {"text\n", "text\n"},
        // Empty lines.
        {"<a>\n\n\n<b/>\n \n\n<c/>\n\n</a>\n\n", "<a>\n  <b/>\n\n  <c/>\n</a>\n"},
        {"<a/>\n\n<!--c-->\n<b/>", "<a/>\n\n<!--c-->\n<b/>\n"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(laidOut(row.xml), row.laidOut);
    EXPECT_EQ(formatted(Ref(xmlDocumentCreate())), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
}

TEST(Format, AnElementSaysWhetherItsWhiteSpaceStays) {
    const Row rows[] = {
        {"<a xml:space='preserve'><b> <c/></b></a>",
         "<a xml:space=\"preserve\"><b> <c/></b></a>\n"},
        {"<a><b xml:space='&#x70;reserve'><c/></b><d><e/></d></a>",
         "<a>\n  <b xml:space=\"&#x70;reserve\"><c/></b>\n  <d>\n    <e/>\n  </d>\n</a>\n"},
        {"<a xml:space='preserve'> <b xml:space='default'><c/></b></a>",
         "<a xml:space=\"preserve\"> <b xml:space=\"default\">\n    <c/>\n  </b></a>\n"},
        {"<a xml:space='&e;'><c xml:space='other'><d/></c></a>",
         "<a xml:space=\"&e;\">\n  <c xml:space=\"other\">\n    <d/>\n  </c>\n</a>\n"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(laidOut(row.xml), row.laidOut);
}

TEST(Format, LinesAreIndentedAsAskedAndEndAsTheDocumentsDo) {
    const std::string xml = "<a><b><c/></b></a>";
    EXPECT_EQ(laidOut(xml, {0, 0}), "<a>\n<b>\n<c/>\n</b>\n</a>\n");
    EXPECT_EQ(laidOut(xml, {XML_LAYOUT_TAB, 0}), "<a>\n\t<b>\n\t\t<c/>\n\t</b>\n</a>\n");
    EXPECT_EQ(laidOut(xml, {3, 0}), "<a>\n   <b>\n      <c/>\n   </b>\n</a>\n");
    EXPECT_EQ(formatted(test::decode("<?xml?>\r\n<a><b/>\n</a>").document),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<a>\r\n  <b/>\r\n</a>\r\n");
}

TEST(Format, AttributesOfWideTagsStandOnLinesOfTheirOwn) {
    const std::string wide = "<a><b c='\u00e9' d='&lt;'/></a>";
    const std::string oneLine = "<a>\n  <b c=\"\u00e9\" d=\"&lt;\"/>\n</a>\n";
    const std::string lines = "<a>\n  <b\n      c=\"\u00e9\"\n      d=\"&lt;\"/>\n</a>\n";
    EXPECT_EQ(laidOut(wide, {2, 21}), oneLine);
    EXPECT_EQ(laidOut(wide, {2, 20}), lines);
    EXPECT_EQ(laidOut("<a b='1'>text</a>", {2, 9}), "<a b=\"1\">text</a>\n");
    EXPECT_EQ(laidOut("<a b='1'>text</a>", {2, 8}), "<a\n    b=\"1\">text</a>\n");
    EXPECT_EQ(laidOut("<a><b c='1'/></a>", {XML_LAYOUT_TAB, 18}), "<a>\n\t<b c=\"1\"/>\n</a>\n");
    EXPECT_EQ(laidOut("<a><b c='1'/></a>", {XML_LAYOUT_TAB, 17}),
              "<a>\n\t<b\n\t\t\tc=\"1\"/>\n</a>\n");
    EXPECT_EQ(laidOut("<a>1<b c='1' d='2'/></a><ccccc/>", {2, 4}),
              "<a>1<b c=\"1\" d=\"2\"/></a>\n<ccccc/>\n");
}

TEST(Format, DepthCostsNeitherStackNorRoom) {
    constexpr int depth = 100'000;
    std::string xml = "<?xml?>";
    for (int i = 0; i < depth; ++i)
        xml += "<a>";
    xml += "<b/>";
    for (int i = 0; i < depth; ++i)
        xml += "</a>";
    const auto document = test::decode(xml).document;
    const std::string once = formatted(document, {16, 0});
    EXPECT_LT(once.size(), size_t{2} * depth * (64 * 16 + 6));
    EXPECT_EQ(formatted(test::decode(once).document, {16, 0}), once);
}

TEST(Format, TreesThatAProgramHasMadeAreWrittenAsTheEncoderWritesThem) {
    Ref doc = test::plain("<a b='1'> <c/><d>2</d></a>");
    Ref root(xmlDocumentTakeRoot(doc.edit()));
    xmlElementSetAttributeNameTextValue(root.edit(), test::str("b"), test::str("'\"\"'\""));
    xmlElementAppendItemTextValue(root.edit(), test::str("\n"));
    xmlDocumentSetRoot(doc.edit(), root);
    EXPECT_EQ(formatted(doc, usual, XML_FLAG_ENCODE_OMIT_XML_DECLARATION),
              "<a b='&apos;\"\"&apos;\"'>\n  <c/>\n  <d>2</d>\n</a>\n");

    xmlElementSetAttributeNameTextEscape(root.edit(), test::str("e"), test::str("\u20ac"));
    xmlDocumentSetRoot(doc.edit(), root);
    xmlDocumentSetCharset(doc.edit(), VO_CHARSET_ISO_8859_1);
    EXPECT_EQ(formatted(doc), "<null>") << "the character set lacks the character";
    xmlDocumentSetCharset(doc.edit(), VO_CHARSET_UTF_16BE);
    EXPECT_TRUE(formatted(doc).ends_with(std::string("\0>\0\n", 4)));
    const uint32_t surrogate = 0xD800;
    xmlElementAppendItemTextValue(root.edit(), Ref(voStringCreateFromCharsCopy(&surrogate, 1)));
    xmlDocumentSetRoot(doc.edit(), root);
    EXPECT_EQ(formatted(doc), "<null>");
}

TEST(Format, LayoutsOutOfRangeAreMistakesOfTheProgram) {
    Ref document(xmlDocumentCreate());
    EXPECT_ABORT(formatted(document, {17, 0}), "source/xml/format/xml_format.cpp",
                 "layout.indent >= XML_LAYOUT_TAB && layout.indent <= mostBlanks");
    EXPECT_ABORT(formatted(document, {2, -1}), "source/xml/format/xml_format.cpp",
                 "layout.width >= 0");
}

// ---------------------------------------------------------------- real files

bool isBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == text.npos; }

std::string_view view(XML_UTF8 text) { return {text.bytes, size_t(text.length)}; }

/// The tree without the white space beside nodes in content that has no other text. Empty when
/// there is text at the top, to which a line end may be added.
class Essence {
  public:
    explicit Essence(XML_DOCUMENT *document) : cursor(xmlCursorCreate(document)) {
        if (!lacksText()) return;
        std::vector<bool> open;
        do {
            if (xmlCursorType(cursor) != XML_ITEM_TYPE_TEXT || !open.back() ||
                !isBlank(view(xmlCursorValue(cursor))))
                node();
            const bool hasOnlyMarkup = lacksText();
            if (xmlCursorFirstChild(cursor)) {
                open.push_back(hasOnlyMarkup);
                continue;
            }
            for (; !open.empty() && !xmlCursorNext(cursor); open.pop_back(), text += ')')
                xmlCursorParent(cursor);
        } while (!open.empty());
    }

    std::string text;

  private:
    void node() {
        text += '(';
        text += std::to_string(xmlCursorType(cursor));
        text += view(xmlCursorName(cursor));
        text += view(xmlCursorValue(cursor));
        if (!xmlCursorFirstAttribute(cursor)) return;
        do {
            text += '@';
            text += view(xmlCursorName(cursor));
            text += '=';
            text += view(xmlCursorValue(cursor));
        } while (xmlCursorNext(cursor));
        xmlCursorParent(cursor);
    }

    bool lacksText() {
        bool hasText = false, hasMarkup = false;
        Ref child(xmlCursorCreateHere(cursor));
        for (int found = xmlCursorFirstChild(child); found; found = xmlCursorNext(child)) {
            const XML_ITEM_TYPE type = xmlCursorType(child);
            hasMarkup = hasMarkup || type != XML_ITEM_TYPE_TEXT;
            hasText = hasText || type == XML_ITEM_TYPE_CDATA ||
                      (type == XML_ITEM_TYPE_TEXT && !isBlank(view(xmlCursorValue(child))));
        }
        return hasMarkup && !hasText;
    }

    Ref<XML_CURSOR> cursor;
};

/// Gives whether the bytes could be decoded.
bool check(const std::string &bytes, XML_LAYOUT layout) {
    const auto first = test::decode(bytes);
    if (!first.document) return false;
    const std::string once = formatted(first.document, layout);
    const auto second = test::decode(once);
    if (second.document)
        EXPECT_TRUE(Essence(second.document).text == Essence(first.document).text);
    else
        ADD_FAILURE() << second.error;
    EXPECT_TRUE(formatted(second.document, layout) == once);
    return true;
}

using FormatCorpus = test::CorpusTest;

TEST_F(FormatCorpus, TwiceEqualsOnceAndNothingButWhiteSpaceChanges) {
    constexpr XML_LAYOUT layouts[] = {{2, 0}, {XML_LAYOUT_TAB, 60}, {0, 1}};
    size_t count = 0;
    for (const auto &path : files) {
        SCOPED_TRACE(path.string());
        count += check(test::readFile(path), layouts[count % std::size(layouts)]);
    }
    std::printf("%zu files formatted\n", count);
}

TEST(Format, ConformanceCasesAreTheSameButForWhiteSpace) {
    const std::filesystem::path folder = VOXML_CONFORMANCE;
    if (!std::filesystem::exists(folder)) GTEST_SKIP() << "skipped: no " << folder;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file()) continue;
        SCOPED_TRACE(entry.path().string());
        check(test::readFile(entry.path()), {1, 20});
    }
}

} // namespace
