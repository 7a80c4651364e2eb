// Finding, reading and writing parts of a tree by short ways.
#include "tests/xml/shortcuts/shortcut_layers.hpp"

using namespace test;

namespace {

/// A block of UTF-8 as it comes, which it frees.
std::string takeBlock(char *block, int64_t length) {
    if (!block) return "<null>";
    EXPECT_EQ(block[length], 0);
    std::string text(block, size_t(length));
    voMemFree(block);
    return text;
}

template <class Layer> std::string contentOf(typename Layer::Element *el) {
    int64_t length = -1;
    char *const content = Layer::contentUtf8(el, &length);
    const std::string block = takeBlock(content, length);
    EXPECT_EQ(block, take(Layer::content(el)));
    return block;
}

template <class Layer> std::string attributeOf(typename Layer::Element *el, const char *name) {
    int64_t length = -1;
    char *const value = Layer::attributeUtf8(el, name, &length);
    return takeBlock(value, length);
}

template <class Layer> std::string described(typename Layer::Element *taken) {
    Ref el(taken);
    return el ? describe(el.operator->()) : "<null>";
}

} // namespace

SHORTCUT_TEST_SUITE(ShortReading);

TYPED_TEST(ShortReading, TheRootIsTheFirstElement) {
    EXPECT_EQ(described<TypeParam>(TypeParam::root(documentOf<TypeParam>("<!--c--> <a/><b/>"))),
              "(a)");
    EXPECT_EQ(TypeParam::root(documentOf<TypeParam>("<!--c--> <?pi?>")), nullptr);
    EXPECT_EQ(TypeParam::root(documentOf<TypeParam>("")), nullptr);
    EXPECT_EQ(TypeParam::root(Ref(TypeParam::createDocument())), nullptr);
    auto document = documentOf<TypeParam>("<!--c--> <a/><b/>");
    TypeParam::makeAll(document);
    EXPECT_EQ(described<TypeParam>(TypeParam::root(document)), "(a)");
}

// Before and after the list and the nodes are made, and where some of the nodes are.
TYPED_TEST(ShortReading, AChildIsFoundByItsWholeName) {
    std::string items = "<root>text<ab/><!--b--><a>1</a><b><c/></b><a>2</a><\u00E9/>";
    for (int i = 0; i < 300; ++i)
        items += "<filler><x/>y</filler>";
    items += "<last/></root>";
    for (int made = 0; made < 3; ++made) {
        auto document = documentOf<TypeParam>(items);
        if (made == 2) TypeParam::makeAll(document);
        Ref root(TypeParam::root(document));
        if (made == 1) {
            EXPECT_EQ(TypeParam::elementLength(root), 308);
        }
        EXPECT_EQ(TypeParam::findChild(root, 0, "a"), 3);
        EXPECT_EQ(TypeParam::findChild(root, 3, "a"), 3);
        EXPECT_EQ(TypeParam::findChild(root, 4, "a"), 5);
        EXPECT_EQ(TypeParam::findChild(root, 6, "a"), -1);
        EXPECT_EQ(TypeParam::findChild(root, 1000, "a"), -1);
        EXPECT_EQ(TypeParam::findChild(root, 0, "c"), -1);
        EXPECT_EQ(TypeParam::findChild(root, 0, ""), -1);
        EXPECT_EQ(TypeParam::findChild(root, 0, "\xC3"), -1) << "ill-formed";
        EXPECT_EQ(TypeParam::findChild(root, 0, "last"), 307);
        EXPECT_EQ(described<TypeParam>(TypeParam::child(root, "\u00E9")), "(\u00E9)");
        EXPECT_EQ(described<TypeParam>(TypeParam::child(root, "none")), "<null>");
    }
}

TEST(ShortReading, ANamespaceIsPartOfTheName) {
    for (bool made : {false, true}) {
        auto document = documentOf<NamespacedShort>(
            "<r xmlns:p='u' xmlns:q='v'><a/><q:a/><p:a p:x='1' x='2'/><d xmlns='u'/></r>");
        if (made) xmlNsDocumentMakeAll(document);
        Ref root(xmlNsDocumentRoot(document));
        EXPECT_EQ(xmlNsElementFindChild(root, 0, "a", nullptr), 0);
        EXPECT_EQ(xmlNsElementFindChild(root, 0, "a", "v"), 1);
        EXPECT_EQ(xmlNsElementFindChild(root, 0, "d", "u"), 3);
        EXPECT_EQ(xmlNsElementFindChild(root, 0, "d", nullptr), -1);
        EXPECT_EQ(xmlNsElementFindChild(root, 0, "a", "w"), -1);
        EXPECT_EQ(xmlNsElementFindChild(root, 0, "a", "\xFF"), -1);
        Ref child(xmlNsElementChild(root, "a", "u"));
        ASSERT_TRUE(child);
        EXPECT_EQ(takeBlock(xmlNsElementAttributeTryUtf8(child, "x", "u", nullptr), 1), "1");
        EXPECT_EQ(takeBlock(xmlNsElementAttributeTryUtf8(child, "x", nullptr, nullptr), 1), "2");
        EXPECT_EQ(xmlNsElementAttributeTryUtf8(child, "x", "v", nullptr), nullptr);
        EXPECT_EQ(xmlNsElementAttributeTryUtf8(child, "p:x", nullptr, nullptr), nullptr);
    }
}

TEST(ShortReading, ANameOfALengthMayBePartOfALongerOne) {
    auto document = documentOf<PlainShort>("<r><ab/><a/></r>");
    Ref root(xmlDocumentRoot(document));
    EXPECT_EQ(xmlElementFindChildUtf8(root, 0, "ab", 1), 1);
    EXPECT_EQ(xmlElementFindChildUtf8(root, 0, "ab", -1), 0);
    Ref resolved(xmlNsDocumentRoot(NamespacedShort::of(std::move(document))));
    EXPECT_EQ(xmlNsElementFindChildUtf8(resolved, 0, "ab", 1, nullptr, 0), 1);
}

TYPED_TEST(ShortReading, ContentIsAllTextBelowInDocumentOrder) {
    const struct {
        const char *items, *content;
    } rows[] = {
        {"<r/>", ""},
        {"<r>a&amp;b<![CDATA[&amp;]]><x>c<y>d</y></x>e</r>", "a&b&amp;cde"},
        {"<r><!--no--><?no?><x a='no'/>\u00E9&lt;</r>", "\u00E9<"},
        {"<r><x><y>&unknown;</y></x></r>", "<null>"},
        {"<r>a<x><![CDATA[&unknown;]]></x><y/><y>\u00E9</y></r>", "a&unknown;\u00E9"},
    };
    for (const auto &[items, content] : rows) {
        auto document = documentOf<TypeParam>(items);
        for (bool made : {false, true}) {
            if (made) TypeParam::makeAll(document);
            EXPECT_EQ(contentOf<TypeParam>(Ref(TypeParam::root(document))), content) << items;
        }
    }
}

TYPED_TEST(ShortReading, ContentOfDecodedTextMakesNoObjects) {
    std::string items = "<r>";
    for (int i = 0; i < 2000; ++i)
        items += "<a><b>1</b><![CDATA[2]]></a>";
    auto document = documentOf<TypeParam>(items + "</r>");
    Ref root(TypeParam::root(document));
    const int64_t before = vo::liveObjects();
    EXPECT_EQ(contentOf<TypeParam>(root).size(), 4000U);
    EXPECT_EQ(TypeParam::findChild(root, 0, "b"), -1);
    EXPECT_EQ(vo::liveObjects(), before);
}

TYPED_TEST(ShortReading, ContentNeedsNoStack) {
    onSmallStack([] {
        const int depth = 20000;
        std::string open, close;
        for (int i = 0; i < depth; ++i) {
            open += "<a>";
            close += "x</a>";
        }
        auto document = documentOf<TypeParam>(open + close);
        EXPECT_EQ(contentOf<TypeParam>(Ref(TypeParam::root(document))), std::string(depth, 'x'));
    });
}

TYPED_TEST(ShortReading, AnAttributeValueIsResolved) {
    auto document =
        documentOf<TypeParam>("<r a='x&#10;&lt;\u00E9' e='' n='&none;' s='1&#xD800;2'/>");
    Ref root(TypeParam::root(document));
    EXPECT_EQ(attributeOf<TypeParam>(root, "a"), "x\n<\u00E9");
    EXPECT_EQ(attributeOf<TypeParam>(root, "e"), "");
    EXPECT_EQ(attributeOf<TypeParam>(root, "n"), "<null>");
    EXPECT_EQ(attributeOf<TypeParam>(root, "s"), "1\uFFFD2");
    EXPECT_EQ(attributeOf<TypeParam>(root, "none"), "<null>");
    EXPECT_EQ(attributeOf<TypeParam>(root, "no name"), "<null>");
    EXPECT_EQ(attributeOf<TypeParam>(root, "\xFF"), "<null>");
}

TYPED_TEST(ShortReading, AnElementIsWrittenAlone) {
    auto document = documentOf<TypeParam>("<r><a b = \"1\">\u00E9<c></c></a>\u4E2D</r>");
    Ref root(TypeParam::root(document));
    Ref child(TypeParam::child(root, "a"));
    Ref utf8(TypeParam::encodeElement(child, VO_CHARSET_UTF_8));
    EXPECT_EQ(bytes(utf8), "<a b=\"1\">\u00E9<c/></a>");
    Ref latin(TypeParam::encodeElement(child, VO_CHARSET_ISO_8859_1));
    EXPECT_EQ(bytes(latin), "<a b=\"1\">\xE9<c/></a>");
    EXPECT_EQ(TypeParam::encodeElement(root, VO_CHARSET_ISO_8859_1), nullptr);
}

TEST(ShortReading, AnElementInANamespaceDeclaresWhatItNeeds) {
    auto document = documentOf<NamespacedShort>("<p:r xmlns:p='u'><p:a p:b='1'><c/></p:a></p:r>");
    Ref child(xmlNsElementChild(Ref(xmlNsDocumentRoot(document)), "a", "u"));
    Ref alone(xmlNsElementTryEncode(child, VO_CHARSET_UTF_8));
    const std::string text = bytes(alone);
    auto again = documentOf<NamespacedShort>(text);
    ASSERT_TRUE(again) << text;
    Ref root(xmlNsDocumentRoot(again));
    EXPECT_EQ(NamespacedShort::nameOf(root), "u:a");
    EXPECT_EQ(xmlNsElementFindChild(root, 0, "c", nullptr), 0);
}
