#include "source/xml/base/xml_text.hpp"
#include "tests/support.hpp"
#include "xml/xml.h"

#include <random>

using namespace test;

static const char *const file = "source/xml/base/xml_text.cpp";

static Ref<XML_TEXT> escaped(std::string_view plain) {
    return Ref(xmlTextCreateEscape(str(plain)));
}
static Ref<XML_TEXT> value(std::string_view escaped) {
    return Ref(xmlTextCreateValue(str(escaped)));
}

TEST(Text, EscapesOnlyWhatWouldBeMarkup) {
    struct {
        const char *plain, *escaped;
    } rows[] = {
        {"", ""},
        {"plain > \"'\t]]> \xF0\x9F\x98\x80", "plain > \"'\t]]> \xF0\x9F\x98\x80"},
        {"a<b&c>d", "a&lt;b&amp;c>d"},
        {"&amp;", "&amp;amp;"},
        {"<&<", "&lt;&amp;&lt;"},
    };
    for (auto &row : rows) {
        auto text = escaped(row.plain);
        EXPECT_EQ(take(xmlTextValue(text)), row.escaped);
        EXPECT_EQ(take(xmlTextTryUnescape(text)), row.plain);
    }
}

TEST(Text, UnescapesReferences) {
    struct {
        const char *value, *plain;
    } rows[] = {
        {"", ""},
        {"a&lt;&gt;&amp;&quot;&apos;b", "a<>&\"'b"},
        {"&#65;&#x42;&#X43;&#0000000068;", "ABCD"},
        {"&#x1F600;", "\xF0\x9F\x98\x80"},
        {"&#xD800;", "<ill-formed>"}, // a surrogate is taken as it is
        {"&amp;lt;", "&lt;"},
        {"x&foo;y", "<null>"},
        {"&LT;", "<null>"},
        {"&ltx;", "<null>"},
        {"&lt;&nbsp;", "<null>"},
    };
    for (auto &row : rows)
        EXPECT_EQ(take(xmlTextTryUnescape(value(row.value))), row.plain) << row.value;
}

TEST(Text, UnescapingUndoesEscaping) {
    std::mt19937 random(1);
    for (int i = 0; i < 2000; ++i) {
        std::string plain;
        for (size_t length = random() % 40; plain.size() < length;)
            plain += "&<>;#xlt'\" "[random() % 11];
        auto text = escaped(plain);
        EXPECT_TRUE(xmlValueTextOk(Ref(xmlTextValue(text))));
        ASSERT_EQ(take(xmlTextTryUnescape(text)), plain);
    }
}

TEST(Text, BecomesAnAttributeValueWithTheFewestEscapes) {
    struct {
        const char *value, *quoted;
    } rows[] = {
        {"", "\"\""},
        {"&lt;&#65;", "\"&lt;&#65;\""},
        {"\"\"", "'\"\"'"},
        {"'", "\"'\""},
        {"'\"", "\"'&quot;\""},
        {"\"'\"'\"", "'\"&apos;\"&apos;\"'"},
        {"''\"", "\"''&quot;\""},
    };
    for (auto &row : rows)
        EXPECT_EQ(take(xml___TextAttributify(value(row.value))), row.quoted);
}

TEST(Text, SharesWhatNeedsNoConversion) {
    auto plain = str("plain");
    Ref text(xmlTextCreateEscape(plain));
    EXPECT_EQ(Ref(xmlTextValue(text)), plain);
    EXPECT_EQ(Ref(xmlTextTryUnescape(text)), plain);
}

TEST(Text, ChangesInPlaceUnlessShared) {
    auto text = value("a");
    Ref<voParserLocation> location(voParserLocationCreate(nullptr, 0, 1, 1));
    xmlTextSetLocation(text.edit(), location);
    Ref other(xmlTextRetain(text));
    xmlTextSetEscape(text.edit(), str("<"));
    EXPECT_EQ(take(xmlTextValue(other)), "a");
    EXPECT_EQ(take(xmlTextValue(text)), "&lt;");
    EXPECT_EQ(Ref(xmlTextLocation(text)), location);

    XML_TEXT *sole = text;
    xmlTextSetValue(text.edit(), Ref(xmlTextValue(text)));
    xmlTextSetEscape(text.edit(), Ref(xmlTextValue(text)));
    EXPECT_EQ(text, sole);
    EXPECT_EQ(take(xmlTextValue(text)), "&amp;lt;");
}

TEST(Text, MisuseAborts) {
    auto text = value("a");
    EXPECT_ABORT(xmlTextSetValue(text.edit(), str("<")), file, "xmlValueTextOk( value )");
    EXPECT_ABORT((void)Ref(xmlTextCreateValue(str("&"))), file, "xmlValueTextOk( value )");
}
