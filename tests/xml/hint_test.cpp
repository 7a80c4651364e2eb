// What is said about a refused document, beside the error. The tool's tests go through the texts.
#include "source/xml/hint/xml_refused.hpp"
#include "tests/xml/codec.hpp"
#include "tests/xml/mutator.hpp"
#include "tests/xml/random_xml.hpp"

#include <map>
#include <utility>

namespace {

struct Refusal {
    std::string hint;
    int64_t byteOffset;
    std::string place; ///< Of the hint: line and column; empty where it is the error's.
};

std::string closerPlace(XML_DECODE_ERROR *error, voBuffer *bytes) {
    Ref location(xmlDecodeErrorTryHintLocation(error, bytes));
    if (!location) return {};
    return std::to_string(voParserLocationLine(location)) + ":" +
           std::to_string(voParserLocationColumn(location));
}

/// The bytes must be refused by one of the layers.
Refusal refusalOf(voBuffer *bytes, XML_FLAGS flags = XML_FLAG_DECODE_LOCATION) {
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), flags);
    Ref result(xmlDocumentDecode(bytes, options, nullptr));
    if (Ref error(xmlDecodeResultError(result)); error)
        return {test::take(xmlDecodeErrorTryHint(error, bytes)),
                xmlDecodeErrorByteOffset(error, bytes), closerPlace(error, bytes)};
    Ref resolved(xmlNsDocumentTryDecode(Ref(xmlDecodeResultDocument(result))));
    Ref error(xmlNsDecodeResultError(resolved));
    return {test::take(xmlNsDecodeErrorTryHint(error, bytes)),
            xmlNsDecodeErrorByteOffset(error, bytes),
            {}};
}

std::string_view viewOf(voBuffer *buffer) {
    return {reinterpret_cast<const char *>(voBufferBacking(buffer)),
            size_t(voBufferLength(buffer))};
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
        {"<a b='&#xZZ;'/>", "after \"&#\" in the value of attribute 'b' comes a number and \";\", "
                            "as in &#8364; and &#x20AC;"},
        {"<a>&#0;</a>", "the reference \"&#0;\" stands for no character"},
        {"<a>&#65</a>",
         "character references are for attribute values; write the character itself"},
        {"<a b='1'\n c='2'\n b='3'/>", "attribute 'b' is given twice, first in line 1, column 25"},
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

TEST(Hint, KnowsTheSignsOfOtherThingsThanXml) {
    const std::pair<std::string, const char *> rows[] = {
        {"\x1F\x8B\b", "gzip; unpack"},
        {"PK\x03\x04", "zip archive"},
        {"\x89PNG\r\n", "PNG"},
        {"%PDF-1.4", "PDF"},
        {"\n<!DOCTYPE HTML>", "HTML"},
        {"\xEF\xBB\xBF [1]", "JSON"},
        {"<<<<<<< HEAD\n", "merge"},
        {"<?xml?><a>\r<<<<<<< HEAD", "merge"},
        {"<?xml?><a\n>>>>>>> x", "end tag"},
        {"<?xml?><a\n<<<<<<< HEAD\n b=''/>", "merge"},
        {"<?xml?><a> <<<<<<<", "&lt;"},
    };
    for (const auto &[text, word] : rows)
        EXPECT_NE(refusalOf(test::buffer(text)).hint.find(word), std::string::npos) << text;
}

TEST(Hint, PointsAtWhatIsWrongWithinATag) {
    const struct {
        const char *text, *place;
    } rows[] = {
        {"<a\n b='1'\n c='x &amp;\n & y'/>", "4:2"},
        {"<a\n b='1'\n\tb='1'/>", "3:2"},
        {"<a\n b='1'\n c/>", "3:2"},
        {"<a\n b='1'\n c=1/>", "3:2"},
        {"<a\n b='1'\n c='\n<d/></a>", "3:2"},
        {"<a\n b='1'\n %/>", "3:2"},
        {"<a></a\n b>", "2:2"},
        {"<a>", ""},
        {"<a b='1'", ""},
        {"<a>&</a>", ""},
    };
    for (const auto &[text, place] : rows)
        EXPECT_EQ(refusalOf(test::buffer(std::string("<?xml version='1.0'?>") + text)).place, place)
            << text;
    EXPECT_EQ(refusalOf(test::buffer("<?xml version='1.0'\nstandalone='si'?>")).place, "2:13");
}

TEST(Hint, FindsTheFirstBytesThatAreIllFormedInAnyCharacterSet) {
    const struct {
        const char *name;
        voCharset charset;
        std::string bad;
        int64_t mark;
        bool knowsOffset;
    } rows[] = {
        {"UTF-8", VO_CHARSET_UTF_8, "\xE9", 3, true},
        {"UTF-8", VO_CHARSET_UTF_8, "\xE2\x82", 3, true},
        {"windows-1252", VO_CHARSET_WINDOWS_1252, "\x81", 0, true},
        {"Shift_JIS", VO_CHARSET_SHIFT_JIS, "\xFF", 0, true},
        {"GB18030", VO_CHARSET_GB18030, "\xFF", 0, true},
        {"UTF-16", VO_CHARSET_UTF_16LE, std::string("\0\xDC", 2), 2, true},
        {"UTF-16BE", VO_CHARSET_UTF_16BE, std::string("\xDC\0", 2), 2, true},
        {"UTF-32", VO_CHARSET_UTF_32LE, std::string("\0\0\xFF\0", 4), 4, true},
        {"ISO-2022-JP", VO_CHARSET_ISO_2022_JP, "\x1B(B\xFF", 0, false},
    };
    for (const auto &row : rows) {
        const bool hasReplacement = row.charset >= VO_CHARSET_UTF_8;
        std::string text = std::string("<?xml version='1.0' encoding='") + row.name + "'?>\n<a>";
        if (hasReplacement) text += "\uFFFD";
        Ref start = encoded(row.charset, text, row.mark ? VO_CHARSET_FLAG_BOM : 0);
        for (const char *rest : {"", "</a>"}) {
            const std::string end(viewOf(encoded(row.charset, rest)));
            const std::string bytes = std::string(viewOf(start)) + row.bad + end;
            const Refusal refusal = refusalOf(test::buffer(bytes));
            EXPECT_EQ(refusal.place, hasReplacement ? "2:5" : "2:4") << row.name << rest;
            EXPECT_EQ(refusal.byteOffset, row.knowsOffset ? voBufferLength(start) : -1) << row.name;
        }
    }
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

TEST(Hint, AnyBytesHaveATextToShow) {
    const std::pair<std::string, const char *> rows[] = {
        {"<?xml version='1.0' encoding='latin1'?>\xE9",
         "<?xml version='1.0' encoding='latin1'?>\u00E9"},
        {"<?xml version='1.0'?>\xE9<a", "<?xml version='1.0'?>\uFFFD<a"},
        {"\xE9t\xC3\xA9", "\uFFFDt\u00E9"},
        {std::string("\0<\0a", 4), "<a"},
        {"", ""},
    };
    for (const auto &[bytes, text] : rows)
        EXPECT_EQ(test::take(xmlDocumentDecodeTextLeniently(test::buffer(bytes))), text);
}

TEST(Hint, TheDeclaredEncodingIsGivenAsItStands) {
    const std::pair<const char *, const char *> rows[] = {
        {"<?xml version='1.0' encoding='utf8x'?>", "utf8x"},
        {"\n<?xml encoding=\"Latin1\" ?", "Latin1"},
        {"<?xml version='1.0'?><a encoding='x'/>", "<null>"},
        {"<a encoding='x'/>", "<null>"},
    };
    for (const auto &[bytes, name] : rows)
        EXPECT_EQ(test::take(xmlDocumentTryDeclaredEncoding(test::buffer(bytes))), name);
}

// ---------------------------------------------------------------- agreement with the decoder

namespace {

/// Calls `visit` with each start tag's attributes as the decoder has them and its `<` in the text.
template <class Visit> void visitTags(XML_DOCUMENT *document, Visit visit) {
    test::visitItems<test::Plain>(Ref(xmlDocumentItems(document)), [&](XML_ITEM *item) {
        Ref element(xmlItemElement(item));
        if (!element) return;
        std::vector<std::pair<std::string, std::string>> attributes;
        for (int64_t i = 0; i < xmlElementAttributesLength(element); ++i) {
            Ref attribute(xmlElementAttributeAt(element, i));
            attributes.emplace_back(test::take(xmlAttributeName(attribute)),
                                    test::take(xmlAttributeTextValue(attribute)));
        }
        visit(attributes, voParserLocationOffset(Ref(xmlElementLocation(element))));
    });
}

/// What decoding says about a text that was cut off and mended.
void expectOtherError(std::string_view start, std::string_view end, const test::Decoded &before) {
    const std::string mended = std::string(start) + std::string(end);
    const test::Decoded after = test::decode(mended, XML_FLAG_DECODE_LOCATION);
    EXPECT_FALSE(after.error == before.error && after.place.offset == before.place.offset)
        << mended;
}

/// Without what the hint calls wrong in a tag, the tag is right.
void expectRightUpTo(const xml::Refused &refused, const test::Decoded &decoded, int64_t closer) {
    const std::string_view text = refused.text();
    const size_t tag = xml::placeOfChar(text, decoded.place.offset);
    if (decoded.error == "TAG" && closer >= 0) {
        expectOtherError(text.substr(0, xml::placeOfChar(text, closer)), ">", decoded);
    } else if (decoded.error == "ATTRIBUTE_LIST") {
        const std::string_view name = xml::tagNameAt(text, tag);
        const auto scan =
            xml::scanAttributes(text, size_t(name.data() + name.size() - text.data()));
        ASSERT_NE(scan.fault, xml::AttributeFault::none) << text;
        const auto wrong = size_t(scan.attributes.back().name.data() - text.data());
        expectOtherError(text.substr(0, wrong), ">", decoded);
    }
}

void expectNoHint(voBuffer *bytes, int64_t offset) {
    Ref place(voParserLocationCreate(nullptr, offset, 1, 1));
    for (XML_DECODE_ERROR_CODE code = 0; XML_DECODE_ERROR_CODE_OK(code); ++code) {
        Ref error(xmlDecodeErrorCreate(code, place));
        EXPECT_EQ(xmlDecodeErrorTryHint(error, bytes), nullptr) << viewOf(bytes);
        EXPECT_EQ(xmlDecodeErrorTryHintLocation(error, bytes), nullptr);
    }
}

void expectGoodHint(voBuffer *bytes, const test::Decoded &decoded) {
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), XML_FLAG_DECODE_LOCATION);
    Ref error(xmlDecodeResultError(Ref(xmlDocumentDecode(bytes, options, nullptr))));
    EXPECT_NE(test::take(xmlDecodeErrorTryHint(error, bytes)), "<null>") << viewOf(bytes);
    Ref location(xmlDecodeErrorTryHintLocation(error, bytes));
    const int64_t closer = location ? voParserLocationOffset(location) : -1;
    const xml::Refused refused(bytes);
    if (location) {
        Ref text(xmlDocumentDecodeTextLeniently(bytes));
        EXPECT_LE(closer, voStringLength(text));
        EXPECT_TRUE(closer >= decoded.place.offset || decoded.error == "XML_DECLARATION");
    }
    if (refused.text() == viewOf(bytes)) expectRightUpTo(refused, decoded, closer);
}

} // namespace

TEST(Hint, ReadsAttributesAsTheDecoderDoes) {
    test::RandomXml documents(47);
    int tags = 0;
    for (int round = 0; round < 200; ++round) {
        const std::string bytes = documents.document(40);
        const test::Decoded decoded = test::decode(bytes, XML_FLAG_DECODE_LOCATION);
        ASSERT_TRUE(decoded.document) << bytes;
        const std::string text = test::take(xmlDocumentTryDecodeText(test::buffer(bytes)));
        visitTags(decoded.document, [&](const auto &attributes, int64_t offset) {
            const std::string_view name = xml::tagNameAt(text, xml::placeOfChar(text, offset));
            const auto scan =
                xml::scanAttributes(text, size_t(name.data() + name.size() - text.data()));
            ASSERT_EQ(scan.fault, xml::AttributeFault::none);
            ASSERT_EQ(scan.attributes.size(), attributes.size()) << text;
            for (size_t i = 0; i < attributes.size(); ++i) {
                EXPECT_EQ(scan.attributes[i].name, attributes[i].first);
                EXPECT_EQ(scan.attributes[i].value, attributes[i].second);
            }
            ++tags;
        });
    }
    EXPECT_GT(tags, 1000);
}

TEST(Hint, ReadsTheDeclaredEncodingAsTheDecoderDoes) {
    test::Mutator mutator(13);
    int known = 0, unknown = 0;
    for (int round = 0; round < 5000; ++round) {
        // The head, in which an encoding counts, ends somewhere in the declaration.
        const std::string blanks(round % 2 ? 975 + mutator.below(30) : 0, ' ');
        const std::string start =
            "<?xml version='1.0'" + blanks + " encoding='latin1' standalone='no'?>";
        const std::string bytes = mutator.changed(start, " encoding='x'") + "<a/>";
        Ref xml = test::buffer(bytes);
        const xml::Refused refused(xml);
        if (!refused.hasDeclaration()) continue;
        Ref name(xmlDocumentTryDeclaredEncoding(xml));
        const voCharset named = name ? voCharsetFromIanaName(name) : -1;
        const bool isKnown = VO_CHARSET_OK(named);
        ++(isKnown ? known : unknown);
        EXPECT_EQ(refused.input.charset, isKnown ? named : voCharset{VO_CHARSET_UTF_8}) << bytes;
    }
    EXPECT_GT(known, 500);
    EXPECT_GT(unknown, 500);
}

TEST(Hint, NeverContradictsTheDecoder) {
    test::RandomXml documents(11);
    test::Mutator mutator(12);
    std::map<std::string, int> seen;
    std::string text = documents.document(20), other;
    for (int round = 0; round < 3000; ++round) {
        if (round % 10 == 0) other = std::exchange(text, documents.document(20));
        const std::string changed = mutator.changed(text, other);
        Ref bytes = test::buffer(changed);
        const test::Decoded decoded = test::decode(changed, XML_FLAG_DECODE_LOCATION);
        ++seen[decoded.error];
        if (decoded.document)
            expectNoHint(bytes, int64_t(mutator.below(changed.size() + 1)));
        else
            expectGoodHint(bytes, decoded);
    }
    EXPECT_EQ(seen.size(), size_t(XML_DECODE_ERROR_CODE_TEXT) + 2) << "every code, and no error";
}
