// What is said about a refused document, beside the error. The tool's tests go through the texts.
#include "tests/xml/codec.hpp"

namespace {

struct Refusal {
    std::string hint;
    int64_t byteOffset;
};

/// The bytes must be refused by one of the layers.
Refusal refusalOf(voBuffer *bytes, XML_FLAGS flags = XML_FLAG_DECODE_LOCATION) {
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), flags);
    Ref result(xmlDocumentDecode(bytes, options, nullptr));
    if (Ref error(xmlDecodeResultError(result)); error)
        return {test::take(xmlDecodeErrorTryHint(error, bytes)),
                xmlDecodeErrorByteOffset(error, bytes)};
    Ref resolved(xmlNsDocumentTryDecode(Ref(xmlDecodeResultDocument(result))));
    Ref error(xmlNsDecodeResultError(resolved));
    return {test::take(xmlNsDecodeErrorTryHint(error, bytes)),
            xmlNsDecodeErrorByteOffset(error, bytes)};
}

Ref<voBuffer> encoded(voCharset charset, std::string_view text, voCharsetFlags flags = 0) {
    return Ref(voCharsetTryConvertStringToBufferWithFlags(charset, test::str(text), flags));
}

} // namespace

TEST(Hint, ByteOffsetsCountInTheCharacterSetOfTheBytes) {
    const std::string head = "<?xml version='1.0' encoding='", tail = "'?><a>\u00FC</b>";
    const struct {
        const char *name;
        voCharset charset;
        voCharsetFlags flags;
        int64_t unit, mark, extra; ///< Bytes for ASCII, of the mark, and more for the letter.
    } rows[] = {
        {"UTF-8", VO_CHARSET_UTF_8, 0, 1, 0, 1},
        {"UTF-8", VO_CHARSET_UTF_8, VO_CHARSET_FLAG_BOM, 1, 3, 1},
        {"ISO-8859-1", VO_CHARSET_ISO_8859_1, 0, 1, 0, 0},
        {"GB18030", VO_CHARSET_GB18030, 0, 1, 0, 1},
        {"UTF-16", VO_CHARSET_UTF_16, 0, 2, 2, 0},
        {"UTF-16", VO_CHARSET_UTF_16LE, VO_CHARSET_FLAG_BOM, 2, 2, 0},
        {"UTF-16LE", VO_CHARSET_UTF_16LE, 0, 2, 0, 0},
        {"UTF-32", VO_CHARSET_UTF_32, 0, 4, 4, 0},
        {"UTF-32BE", VO_CHARSET_UTF_32BE, VO_CHARSET_FLAG_BOM, 4, 4, 0},
    };
    for (const auto &row : rows) {
        Ref bytes = encoded(row.charset, head + row.name + tail, row.flags);
        const auto chars = int64_t((head + row.name + "'?><a>u").size());
        const Refusal refusal = refusalOf(bytes);
        EXPECT_EQ(refusal.byteOffset, row.mark + chars * row.unit + row.extra) << row.name;
        EXPECT_TRUE(refusal.hint.starts_with("the open element is <a> of line 1")) << refusal.hint;
    }
}

TEST(Hint, BothLayersAndErrorsWithoutALocationHaveOne) {
    const std::string declaration = "<?xml version='1.0'?>";
    Refusal refusal = refusalOf(test::buffer(declaration + "<a><p:b/></a>"));
    EXPECT_EQ(refusal.hint, "declare the prefix with xmlns:p=\"...\" here or further out");
    EXPECT_EQ(refusal.byteOffset, 24);
    refusal = refusalOf(test::buffer(declaration + "<a>\xE9</a>"));
    EXPECT_EQ(refusal.byteOffset, 24);
    refusal = refusalOf(test::buffer("<a/>"));
    EXPECT_TRUE(refusal.hint.starts_with("a document begins with"));
    EXPECT_EQ(refusal.byteOffset, -1);
    refusal = refusalOf(test::buffer(declaration + "<a>"), 0);
    EXPECT_EQ(refusal.hint, "<null>") << "the place is not known";
    EXPECT_EQ(refusal.byteOffset, -1);
}

TEST(Hint, SaysWhatIsWrongAndNotSomethingElse) {
    const struct {
        std::string text, hint;
    } rows[] = {
        {"<a b='&#0;'/>",
         "the reference \"&#0;\" in the value of attribute 'b' stands for no character"},
        {"<a b='&#x110000;'/>",
         "the reference \"&#x110000;\" in the value of attribute 'b' stands for no character"},
        {"<a b='x&#X4a'/>", "end the reference \"&#X4a\" in the value of attribute 'b' with \";\""},
        {"<a b='&lt;&lt'/>", "write &amp; for \"&\" in the value of attribute 'b', or end the "
                             "reference with \";\""},
        {"<a b='&#x;'/>", "write &amp; for \"&\" in the value of attribute 'b'"},
        {"<a b='1'\n c='2'\n b='3'/>", "attribute 'b' is given twice, again in line 3, column 2"},
        {"<a>x < y</a>",
         "the tag 'y' cannot hold \"<\" here; write &lt; where \"<\" does not begin a tag"},
        {"<a>x < y > z</a>", "the open element is <y> of line 1, column 27; write &lt; where \"<\" "
                             "does not begin a tag"},
        {"< a>", "<a> has no end tag; write &lt; where \"<\" does not begin a tag"},
        {"<a>&lt</a>", "write &amp; for \"&\", or end the reference with \";\""},
        {"<xmlns:a/>", "the prefix xmlns is for declarations; no element has it"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(refusalOf(test::buffer("<?xml version='1.0'?>" + row.text)).hint, row.hint);
    EXPECT_EQ(refusalOf(test::buffer("<?XML version='1.0'?><a/>")).hint,
              "write \"<?xml\" for \"<?XML\"");
    EXPECT_EQ(refusalOf(test::buffer("<?xml-stylesheet?><a/>")).hint,
              "a document begins with an XML declaration: "
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
}

TEST(Hint, QuotesTheInputAsItStands) {
    const Refusal refusal = refusalOf(test::buffer("<?xml version='1.0'?><a \x1B/>"));
    EXPECT_EQ(refusal.hint, "the tag 'a' cannot hold \"\x1B\" here");
    const std::string name(100, 'n'), shortened(60, 'n');
    EXPECT_EQ(refusalOf(test::buffer("<?xml version='1.0'?><" + name + ">")).hint,
              "<" + shortened + "...> has no end tag");
}

// An error and bytes that do not belong together are no reason to read outside the bytes.
TEST(Hint, AnyErrorAtAnyPlaceIsSafe) {
    const std::string texts[] = {
        "<?xml version='1.0'?><a b='1' \u00E9=\"&x;\"></a><!--",
        "<?xml?><a b='&",
        "<?xml ?></",
        "<?xml?><a>\xF0\x9F\xBF\xBF",
        "",
        "<?xml version='1.0' encoding='UTF-16'?>",
    };
    for (const std::string &text : texts) {
        Ref bytes = test::buffer(text);
        for (int64_t offset = 0; offset < int64_t(text.size()) + 3; ++offset) {
            Ref place(voParserLocationCreate(nullptr, offset, 1, 1));
            for (XML_DECODE_ERROR_CODE code = 0; XML_DECODE_ERROR_CODE_OK(code); ++code) {
                Ref error(xmlDecodeErrorCreate(code, place));
                (void)test::take(xmlDecodeErrorTryHint(error, bytes));
                EXPECT_LE(xmlDecodeErrorByteOffset(error, bytes), int64_t(text.size()));
            }
            for (XML_NS_DECODE_ERROR_CODE code = 0; XML_NS_DECODE_ERROR_CODE_OK(code); ++code) {
                Ref error(xmlNsDecodeErrorCreate(code, place));
                (void)test::take(xmlNsDecodeErrorTryHint(error, bytes));
                EXPECT_LE(xmlNsDecodeErrorByteOffset(error, bytes), int64_t(text.size()));
            }
        }
    }
}

TEST(Hint, TheTextIsWhatLocationsCountIn) {
    Ref bytes = encoded(VO_CHARSET_UTF_16, "<?xml version='1.0'?><a>\u00FC");
    EXPECT_EQ(test::take(xmlDocumentTryDecodeText(bytes)), "<?xml version='1.0'?><a>\u00FC");
    EXPECT_EQ(xmlDocumentTryDecodeText(test::buffer("<a/>")), nullptr);
    EXPECT_EQ(xmlDocumentTryDecodeText(test::buffer("<?xml version='1.0'?>\xFF")), nullptr);
}
