// What comes in through the importer, and what does not.
#include "tests/import/readers.hpp"

#include <expat.h>

#include <fstream>

using test::documentsForImport;

namespace {

namespace fs = std::filesystem;

std::string written(std::string_view bytes, const XML_IMPORT_OPTIONS &options = {}) {
    auto imported = test::import(bytes, options);
    return imported.document ? test::encode(imported.document) : imported.message;
}

/// The items alone, as UTF-8.
std::string items(std::string_view bytes) {
    auto imported = test::import(bytes);
    return imported.document ? test::xmlOf(imported.document) : imported.message;
}

TEST(Import, WhatIsWrittenReadsAsTheSameTreeElsewhere) {
    for (const std::string &document : documentsForImport) {
        SCOPED_TRACE(document);
        const std::string expected = test::c14n(document);
        EXPECT_NE(expected, "");
        EXPECT_EQ(test::c14n(written(document)), expected);
        EXPECT_EQ(test::c14n(written(written(document))), expected);
    }
}

TEST(Import, NodesAreKeptAndReferencesResolved) {
    const struct {
        std::string document, items;
    } rows[] = {
        {"<a>1<![CDATA[<]]>&#50;<!--c--><?p  q ?></a>\n<!--d-->\n",
         "<a>1<![CDATA[<]]>2<!--c--><?p q ?></a><!--d-->"},
        {"<a b='\n&#10;\r\n'>\r\r\n&#13;]]&gt;</a>", "<a b=\" &#10; \">\n\n&#13;]]&gt;</a>"},
        {"<!DOCTYPE a [<!ENTITY e 'f&#38;#38;'><!ATTLIST a b CDATA '&e;'>]><a>&e;<b/>&e;</a>",
         "<a b=\"f&amp;\">f&amp;<b/>f&amp;</a>"},
        {"<!DOCTYPE a [<!ENTITY e '&#13;<![CDATA[]>&#13;]]>'>]><a>]&e;</a>",
         "<a>]&#13;]&gt;&#13;</a>"},
        {"<!DOCTYPE a SYSTEM 'a.dtd' [<!ENTITY x SYSTEM 'x.xml'><!ENTITY e 'E'>]>"
         "<a b='&e;' c='1&u;\r\n&e;'>&x;&u;&e;</a>",
         "<a b=\"E\" c=\"1&u; &e;\">&x;&u;E</a>"},
        {"<!DOCTYPE a SYSTEM 'a.dtd' [<!ENTITY e \"<b c='1&u;2'>&u;</b>\">]><a>&e;</a>",
         "<a><b c=\"12\">&u;</b></a>"},
    };
    for (const auto &[document, expected] : rows)
        EXPECT_EQ(items(document), expected) << document;
}

/// Refused as by Expat, whose verdict is about the same bytes.
TEST(Import, RefusalsAreThoseOfExpat) {
    const std::string refused[] = {
        "",
        "  ",
        "<a>\n\xC3\xA9<b></a>",
        "<a>&b;</a>",
        "<a b='1' b='2'/>",
        "<a>\xC3\xA9\xFF</a>",
        "\xEF\xBB\xBF<a>]]></a>",
        "<a/>x",
        "\r\n\r<?xml version='1.0'?><a/>",
        "<?xml version='1.0' encoding='no such'?><a/>",
        "<?xml version='1.0' encoding='UTF-16'?><a/>",
        "<?xml version='1.0' encoding='US-ASCII'?>\n<a>\xE9</a>",
        "<?xml version='1.0' encoding='ISO-8859-1'?>\n<a>\xE9</b>",
        std::string("\xFE\xFF\0<\0a\0>\0\xE9\0\n\0<", 14),
        "<!DOCTYPE a [<!ENTITY e '<b>'>]>\n<a>&e;</a>",
        "<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]>\n<a>&e;</a>",
        "<!DOCTYPE a [<!ENTITY e SYSTEM 'e.xml'>]>\n<a b='&e;'/>",
    };
    for (const std::string &document : refused) {
        auto imported = test::import(document);
        ASSERT_FALSE(imported.document) << document;
        EXPECT_EQ(imported.refusal, test::refusalByExpat(document)) << document;
    }
    // Expat takes the surrogate for half of a character.
    EXPECT_EQ(test::import({"\xFE\xFF\0<\0a\0>\xD8\0\0<\0<\0/\0a\0>", 20}).refusal,
              (test::Refusal{XML_ERROR_INVALID_TOKEN, 1, 4, 8}));
    EXPECT_EQ(test::import("<a>\n\xC3\xA9</b>").message, "2:4: error: mismatched tag");
}

/// Expat takes three characters of ISO-8859-1 and UTF-16 for letters that are none in a name.
TEST(Import, WhatIsNoNameIsRefusedInEveryCharacterSet) {
    for (const char *markup : {"<@/>", "<b@/>", "<a b@='1'/>", "<?@ x?><a/>",
                               "<!DOCTYPE a [<!ATTLIST a @ CDATA '1'>]><a/>"}) {
        std::string document = "<?xml version='1.0' encoding='ISO-8859-1'?>" + std::string(markup);
        document[document.find('@')] = char(0xAA);
        EXPECT_EQ(test::import(document).refusal.code, XML_ERROR_INVALID_TOKEN) << markup;
    }
}

/// In a character set that Expat does not know.
TEST(Import, RefusalsHaveTheirPlaceInAnyCharacterSet) {
    const std::string head = "<?xml version='1.0' encoding='Shift_JIS'?>\n"; // 43 bytes
    EXPECT_EQ(test::import(head + "<a>\x82\xA0</b>").refusal,
              (test::Refusal{XML_ERROR_TAG_MISMATCH, 2, 7, 43 + 7}));
    EXPECT_EQ(test::import(head + "<a>\x82\xA0\x82").refusal,
              (test::Refusal{XML_ERROR_INVALID_TOKEN, 2, 5, 43 + 5}));
}

TEST(Import, EveryCharacterSetIsReadAndKept) {
    for (voCharset charset = 0; VO_CHARSET_OK(charset); ++charset) {
        const std::string name = test::take(voCharsetToIanaName(charset));
        SCOPED_TRACE(name);
        const std::string head = "<?xml version=\"1.0\" encoding=\"" + name + "\"?>";
        int found = 0;
        for (const char32_t letter :
             std::u32string_view(U"\u00A0\u00E9\u0416\u05D0\u0E01\u4E00\uAC00")) {
            const std::string text = test::text(test::str(std::u32string_view(&letter, 1)));
            const std::string document =
                head + "<" + "a b=\"" + text + "\">" + text + "&#x1F600;</a>";
            Ref bytes(voCharsetTryConvertStringToBufferWithFlags(charset, test::str(document), 0));
            if (!bytes) continue;
            ++found;
            auto imported = test::import(test::bytes(bytes));
            ASSERT_TRUE(imported.document) << imported.message;
            EXPECT_EQ(xmlDocumentCharset(imported.document), charset);
            auto again = test::import(test::encode(imported.document));
            ASSERT_TRUE(again.document) << again.message;
            Ref root(xmlDocumentRoot(again.document));
            EXPECT_EQ(test::take(xmlElementItemTextTryUnescapeAt(root, 0)), text + "\U0001F600");
        }
        EXPECT_EQ(found > 0, charset != VO_CHARSET_US_ASCII);
    }
}

constexpr XML_IMPORT_OPTIONS withPlaces = {1, 0, 0, 0};

/// The place of every node inside the root, and of every attribute.
std::string places(XML_DOCUMENT *document) {
    std::string all;
    auto add = [&all](voParserLocation *adopted) {
        Ref location(adopted);
        all += std::to_string(voParserLocationOffset(location)) + '=' +
               test::take(voParserLocationToString(location)) + ' ';
    };
    Ref root(xmlDocumentRoot(document));
    if (!root) return all;
    Ref inner(xmlDocumentCreate());
    Ref list(xmlItemsCreate());
    xmlItemsAppendItemElement(list.edit(), root);
    xmlDocumentSetItems(inner.edit(), list);
    test::visitItems<test::Plain>(Ref(xmlDocumentItems(inner)), [&](XML_ITEM *item) {
        if (Ref text(xmlItemText(item)); text) add(xmlTextLocation(text));
        if (Ref cdata(xmlItemCdata(item)); cdata) add(xmlCdataLocation(cdata));
        if (Ref comment(xmlItemComment(item)); comment) add(xmlCommentLocation(comment));
        if (Ref pi(xmlItemProcessingInstruction(item)); pi)
            add(xmlProcessingInstructionLocation(pi));
        Ref element(xmlItemElement(item));
        if (!element) return;
        add(xmlElementLocation(element));
        for (int64_t i = 0; i < xmlElementAttributesLength(element); ++i)
            add(xmlAttributeLocation(Ref(xmlElementAttributeAt(element, i))));
    });
    return all;
}

TEST(Import, PlacesAreThoseOfTheOriginal) {
    const std::string document =
        "<?xml version='1.0' encoding='UTF-8'?>\r\n<a  b = 'x\r\ny' c\n=\"'\" >\r\xC3\xA9&lt;z\n"
        "<b/><!--c--><![CDATA[\n]]>t<?p q?>\xE2\x80\xA8 <\xC3\xA9 d='&#9;'/>\n</a>";
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), XML_FLAG_DECODE_LOCATION);
    xmlOptionsSetDecodeNlfFlags(options.edit(), VO_NLF_FLAG_LF | VO_NLF_FLAG_CRLF | VO_NLF_FLAG_CR);
    Ref decoded(xmlDocumentDecode(test::buffer(document), options, nullptr));
    const std::string expected = places(Ref(xmlDecodeResultDocument(decoded)));
    EXPECT_EQ(places(test::import(document, withPlaces).document), expected);
    EXPECT_EQ(places(test::import("\xEF\xBB\xBF" + document, withPlaces).document), expected);

    EXPECT_EQ(places(test::import("<!DOCTYPE a [<!ATTLIST b d CDATA ''><!ENTITY e '<b c=\"\"/>t'>]>"
                                  "\n<a>&e;<b c='>'/></a>",
                                  withPlaces)
                         .document),
              "63=2:1 66=2:4 66=2:4 66=2:4 66=2:4 69=2:7 72=2:10 69=2:7 ");
}

/// A document type declaration in which each entity refers to the one before it `fan` times.
std::string nest(int levels, int fan, std::string_view innermost, std::string_view mark = "",
                 std::string_view reference = "&") {
    std::string out =
        "<!DOCTYPE a [<!ENTITY " + std::string(mark) + "e0 \"" + std::string(innermost) + "\">";
    for (int level = 1; level <= levels; ++level) {
        out += "<!ENTITY " + std::string(mark) + "e" + std::to_string(level) + " \"";
        for (int i = 0; i < fan; ++i)
            out += std::string(reference) + "e" + std::to_string(level - 1) + ";";
        out += "\">";
    }
    return out;
}

std::string repeat(std::string_view text, int times) {
    std::string out;
    for (int i = 0; i < times; ++i)
        out += text;
    return out;
}

TEST(Import, DocumentsThatGrowAreRefusedSoon) {
    const std::string long_(50'000, 'x');
    const std::string bombs[] = {
        nest(10, 10, "lol") + "]><a>&e10;</a>",
        nest(10, 10, "<b c='' d=''/>x") + "]><a>&e10;</a>",
        nest(10, 10, "lol") + "]><a b='&e10;'/>",
        nest(10, 10, "<!---->", "% ", "&#37;") + "%e10;]><a/>",
        "<!DOCTYPE a [<!ENTITY e '" + long_ + "'>]><a>" + repeat("&e;", 50'000) + "</a>",
        "<!DOCTYPE a [<!ATTLIST b c CDATA '" + long_ + "'>]><a>" + repeat("<b/>", 50'000) + "</a>",
        nest(100'000, 1, "x") + "]><a>&e100000;</a>",
        nest(100'000, 1, "<!---->", "% ", "&#37;") + "%e100000;]><a/>",
    };
    const double start = test::threadSeconds();
    for (const std::string &bomb : bombs)
        EXPECT_EQ(test::import(bomb).refusal.code, XML_ERROR_AMPLIFICATION_LIMIT_BREACH)
            << bomb.substr(0, 60);
    const double seconds = test::threadSeconds() - start;
    EXPECT_LT(seconds, TEST_SANITIZED ? 20 : 1);
}

TEST(Import, LimitsCanBeMoved) {
    const std::string text = nest(2, 10, "0123456789") + "]><a>&e2;&e2;</a>";
    EXPECT_TRUE(test::import(text).document);
    EXPECT_FALSE(test::import(text, {0, 1000, 2, 0}).document);
    EXPECT_TRUE(test::import(text, {0, 1000, 50, 0}).document);
    EXPECT_FALSE(test::import(text, {0, 0, 0, 1}).document);
}

TEST(Import, DepthAndNestedReferencesTakeLittleStack) {
    test::onSmallStack([] {
        const std::string deep = repeat("<a>", 100'000) + repeat("</a>", 100'000);
        EXPECT_TRUE(test::import(deep).document);
        if (TEST_SANITIZED) return; // each level takes several times as much
        EXPECT_TRUE(test::import(nest(200, 1, "x") + "]><a b='&e200;'>&e200;</a>").document);
    });
}

TEST(Import, ManyAttributesTakeLittleTime) {
    std::string text = "<a";
    for (int i = 0; i < 100'000; ++i)
        text += " b" + std::to_string(i) + "=''";
    const double start = test::threadSeconds();
    EXPECT_TRUE(test::import(text + "/>").document);
    EXPECT_LT(test::threadSeconds() - start, TEST_SANITIZED ? 20 : 2);
}

TEST(Import, ConformanceFilesAreAcceptedAndRefusedAsByOthers) {
    const fs::path folder = VOXML_CONFORMANCE;
    if (!fs::exists(folder)) GTEST_SKIP() << "skipped: no " << folder;
    int compared = 0;
    for (const auto &entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".xml") continue;
        SCOPED_TRACE(entry.path());
        const std::string document = test::readFile(entry);
        const test::Refusal refusal = test::refusalByExpat(document);
        auto imported = test::import(document);
        // Other verdicts of libxml2 are about versions and namespaces, and it does not know UTF-32
        // with a byte-order mark, which is always written.
        const std::string expected = test::c14n(document);
        if (imported.document && !expected.empty() &&
            xmlDocumentCharset(imported.document) != VO_CHARSET_UTF_32) {
            EXPECT_EQ(test::c14n(test::encode(imported.document)), expected);
            ++compared;
        }
        // Expat knows few character sets; UTF-32, unlike others, by no name.
        const bool isKnown =
            refusal.code != XML_ERROR_UNKNOWN_ENCODING &&
            document.substr(0, 4).find(std::string_view("\0\0", 2)) == std::string::npos;
        EXPECT_TRUE(!isKnown || imported.refusal == refusal) << imported.refusal << "; " << refusal;
    }
    EXPECT_GT(compared, 800);
}

} // namespace
