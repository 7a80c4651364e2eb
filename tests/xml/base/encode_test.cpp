#include "tests/xml/codec.hpp"

using test::bytes;
using test::decode;
using test::encode;
using test::str;

namespace {

const std::string declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

TEST(Encode, WritesTheCanonicalLayoutOfWhatNobodyAskedFor) {
    const std::string more(100, ' ');
    for (std::string tag : {"<a b=''/ >", "<a  b=\"\"/>", "<a b=\"\"></a>"}) {
        auto decoded = decode("<?xml?><c>" + tag + "</c>" + more);
        Ref items(xmlDocumentItems(decoded.document));
        Ref asked(xmlItemsItemElementAt(items, 0));
        EXPECT_EQ(encode(decoded.document), declaration + "<c><a b=\"\"/></c>" + more) << tag;
    }
}

TEST(Encode, WritesAnElementWithTheItemsOfAnEmptyDocumentAsOneTag) {
    auto decoded = decode("<?xml?><a>text</a>");
    Ref items(xmlDocumentItems(decoded.document));
    Ref el(xmlItemsItemElementAt(items, 0));
    xmlElementSetItems(el.edit(), Ref(xmlDocumentItems(decode("<?xml?>").document)));
    xmlItemsSetItemElementAt(items.edit(), 0, el);
    xmlDocumentSetItems(decoded.document.edit(), items);
    EXPECT_EQ(encode(decoded.document), declaration + "<a/>");
}

TEST(Encode, AnElementWithAnEmptyTextHasBothTags) {
    Ref el(xmlElementCreate(str("a")));
    xmlElementAppendItemTextValue(el.edit(), str(""));
    Ref items(xmlItemsCreate());
    xmlItemsAppendItemElement(items.edit(), el);
    Ref document(xmlDocumentCreate());
    xmlDocumentSetItems(document.edit(), items);
    EXPECT_EQ(encode(document, XML_FLAG_ENCODE_OMIT_XML_DECLARATION), "<a></a>");
    EXPECT_EQ(encode(Ref(xmlDocumentCreate()), XML_FLAG_ENCODE_OMIT_XML_DECLARATION), "");
}

TEST(Encode, GivesNullWhereTheCharsetCannotHoldTheText) {
    auto decoded = decode("<?xml?><a>\u0416\u4E2D</a>");
    for (voCharset charset : {VO_CHARSET_US_ASCII, VO_CHARSET_ISO_8859_1, VO_CHARSET_KOI8_R}) {
        xmlDocumentSetCharset(decoded.document.edit(), charset);
        EXPECT_EQ(encode(decoded.document), "<null>");
    }
    Ref text(xmlTextCreateValue(str(std::u32string_view(U"\xD800", 1))));
    Ref items(xmlItemsCreate());
    xmlItemsAppendItemText(items.edit(), text);
    Ref document(xmlDocumentCreate());
    xmlDocumentSetItems(document.edit(), items);
    EXPECT_EQ(encode(document), "<null>");
}

TEST(Encode, ComesBackInEveryCharset) {
    auto decoded = decode("<?xml?><a b='\"x\"'>text &amp; <![CDATA[more]]></a>");
    for (voCharset charset = 0; VO_CHARSET_OK(charset); ++charset) {
        xmlDocumentSetCharset(decoded.document.edit(), charset);
        std::string encoded = encode(decoded.document);
        auto again = decode(encoded);
        ASSERT_TRUE(again.document) << charset << again.error;
        EXPECT_EQ(xmlDocumentCharset(again.document), charset);
        EXPECT_EQ(test::describe(again.document), test::describe(decoded.document)) << charset;
        EXPECT_EQ(encode(again.document), encoded) << charset;
    }
}

TEST(Encode, WritesAByteOrderMarkOnRequest) {
    Ref options(xmlOptionsCreate());
    xmlOptionsSetEncodeCharsetFlags(options.edit(), VO_CHARSET_FLAG_BOM);
    auto decoded = decode("<?xml?><a/>");
    Ref encoded(xmlDocumentTryEncode(decoded.document, options));
    EXPECT_EQ(bytes(encoded), "\xEF\xBB\xBF" + declaration + "<a/>");
    EXPECT_EQ(encode(decode(bytes(encoded)).document), declaration + "<a/>");
}

} // namespace
