#include "tests/xml/codec.hpp"
#include "tests/xml/mutator.hpp"
#include "tests/xml/random_xml.hpp"

using test::decode;
using test::describe;
using test::str;

namespace {

const std::string declaration = "<?xml version='1.0'?>";

TEST(Decode, RefusesMalformedMarkupAtItsPlace) {
    const struct {
        const char *text, *error;
        int64_t offset; ///< Behind the declaration.
    } rows[] = {
        {"<", "TAG", 0},
        {"a<", "TAG", 1},
        {"<a", "TAG", 0},
        {"<a ", "TAG", 0},
        {"<a/", "TAG", 0},
        {"<a ?>", "TAG", 0},
        {"< >", "TAG", 0},
        {"<a><!doctype a>", "TAG", 3},
        {"<!-", "TAG", 0},
        {"<![CDATA", "TAG", 0},
        {"</", "TAG", 0},
        {"<a></a", "TAG", 3},
        {"</>", "TAG", 0},
        {"</a>", "TAG_MISMATCH", 0},
        {"<a></b>", "TAG_MISMATCH", 3},
        {"<a></A>", "TAG_MISMATCH", 3},
        {"<a></ab>", "TAG_MISMATCH", 3},
        {"<ab></a>", "TAG_MISMATCH", 4},
        {"<a><b></a></b>", "TAG_MISMATCH", 6},
        {"<a><b>", "TAG_NOT_CLOSED", 3},
        {"x<a>y<b/>z", "TAG_NOT_CLOSED", 1},
        {"<a x/>", "ATTRIBUTE_LIST", 0},
        {"<a x='&'/>", "ATTRIBUTE_LIST", 0},
        {"<a x='", "ATTRIBUTE_LIST", 0},
        {"<?", "PROCESSING_INSTRUCTION", 0},
        {"<?"
         "?>",
         "PROCESSING_INSTRUCTION", 0},
        {"<!--->", "COMMENT", 0},
        {"<!--a", "COMMENT", 0},
        {"<![CDATA[x", "CDATA", 0},
        {"&", "TEXT", 0},
        {"<a>&lt;&amp", "TEXT", 7},
    };
    for (const auto &row : rows) {
        const auto located = decode(declaration + row.text, XML_FLAG_DECODE_LOCATION);
        EXPECT_EQ(located.error, row.error) << row.text;
        EXPECT_EQ(located.place.offset, int64_t(declaration.size()) + row.offset) << row.text;
        const auto plain = decode(declaration + row.text);
        EXPECT_EQ(plain.error, row.error) << row.text;
        EXPECT_EQ(plain.place.line, -1) << "a location that nobody asked for: " << row.text;
    }
}

TEST(Decode, LooksForADeclarationAtTheBeginning) {
    EXPECT_EQ(decode(std::string(1024, ' ') + declaration).error, "CHARSET");
    EXPECT_EQ(decode(std::string(1000, ' ') + declaration).error, "");
}

TEST(Decode, ReadsTheSettingsOfTheDeclaration) {
    const struct {
        std::string text, version;
        voCharset charset;
        int standalone;
    } rows[] = {
        {"<?xml?>", "1.0", VO_CHARSET_UTF_8, 0},
        {" \n<?xml version=\"1.10\"  ?>", "1.10", VO_CHARSET_UTF_8, 0},
        {"<?xml standalone='yes'version='1.1'foo='&#1;'?>", "1.1", VO_CHARSET_UTF_8, 1},
        {"<?xml version = '1.0' encoding\t=\n'latin1' standalone='no'?>", "1.0",
         VO_CHARSET_ISO_8859_1, 0},
        {"<?xml version='1.0' encoding='no-such-charset'?>", "1.0", VO_CHARSET_UTF_8, 0},
        {"<?xml version='1.0'" + std::string(1024, ' ') + "encoding='latin1'?>", "1.0",
         VO_CHARSET_UTF_8, 0},
        {std::string("\0<\0?\0x\0m\0l\0?\0>", 14), "1.0", VO_CHARSET_UTF_8, 0},
    };
    for (const auto &row : rows) {
        auto decoded = decode(row.text);
        ASSERT_TRUE(decoded.document) << row.text << decoded.error;
        EXPECT_EQ(test::take(xmlDocumentVersion(decoded.document)), row.version);
        EXPECT_EQ(xmlDocumentCharset(decoded.document), row.charset);
        EXPECT_EQ(xmlDocumentStandalone(decoded.document), row.standalone);
        EXPECT_EQ(describe(decoded.document), "");
    }
}

TEST(Decode, LocationsCountFromWhereTheTextBegins) {
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), XML_FLAG_DECODE_LOCATION);
    Ref source = str("big.txt");
    Ref at(voParserLocationCreate(source, 100, 7, 9));
    Ref result(
        xmlDocumentDecode(test::buffer("<?xml?>\u00E9<a b='\n' c=''>\r\nx</a>"), options, at));
    Ref document(xmlDecodeResultDocument(result));
    EXPECT_EQ(Ref(xmlDocumentLocation(document)).operator->(), at.operator->());
    Ref items(xmlDocumentItems(document));
    Ref el(xmlItemsItemElementAt(items, 1));
    Ref attr(xmlElementAttributeAt(el, 1));
    Ref text(xmlElementItemTextAt(el, 0));
    const auto place = [](voParserLocation *location) {
        return test::take(voParserLocationToString(Ref(location)));
    };
    const auto created = [&](int64_t offset, int64_t line, int64_t column) {
        return test::take(
            voParserLocationToString(Ref(voParserLocationCreate(source, offset, line, column))));
    };
    EXPECT_EQ(place(xmlElementLocation(el)), created(108, 7, 17));
    EXPECT_EQ(place(xmlAttributeLocation(attr)), created(117, 8, 3));
    EXPECT_EQ(place(xmlTextLocation(text)), created(122, 8, 8));

    Ref refused(xmlDocumentDecode(test::buffer("<a/>"), options, at));
    Ref error(xmlDecodeResultError(refused));
    EXPECT_EQ(place(xmlDecodeErrorLocation(error)), created(100, 7, 9));
}

TEST(Decode, NamesAreSharedAndSettersDoNotReachOtherHolders) {
    auto decoded = decode(declaration + "<a x='1'> <a x='2'/> </a>");
    Ref items(xmlDocumentItems(decoded.document));
    Ref outer(xmlItemsItemElementAt(items, 0));
    Ref inner(xmlElementItemElementAt(outer, 1));
    std::string before = describe(decoded.document);
    xmlElementSetAttributeTextValueAt(inner.edit(), 0, str("changed"));
    xmlElementAppendItemTextValue(inner.edit(), str("changed"));
    xmlElementSetName(inner.edit(), str("changed"));
    Ref space(xmlElementItemTextAt(outer, 0));
    xmlTextSetValue(space.edit(), str("changed"));
    EXPECT_EQ(describe(decoded.document), before);
}

TEST(Decode, AnyTextGivesARoundTripOrAnError) {
    test::RandomXml documents(2);
    test::Mutator mutator(3);
    std::string last;
    int accepted = 0;
    for (int round = 0; round < 5000; ++round) {
        const std::string text = mutator.changed(documents.document(round % 8), last);
        auto plain = decode(text), located = decode(text, XML_FLAG_DECODE_LOCATION);
        ASSERT_EQ(plain.error, located.error) << text;
        if (!plain.document) continue;
        ++accepted;
        std::string canonical = test::encode(plain.document);
        auto again = decode(canonical);
        ASSERT_TRUE(again.document) << text;
        ASSERT_EQ(describe(again.document), describe(plain.document)) << text;
        ASSERT_EQ(test::encode(again.document), canonical) << text;
        last = text;
    }
    EXPECT_GT(accepted, 500);
}

} // namespace
