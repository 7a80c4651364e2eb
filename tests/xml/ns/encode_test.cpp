#include "source/xml/ns/xml_ns_document_encode.hpp"
#include "tests/xml/codec.hpp"

using namespace test;

namespace {

TEST(NsEncode, GeneratedPrefixesCountInLettersAndAvoidDeclaredOnes) {
    const auto letters = [](int number) {
        std::string word;
        do
            word.insert(word.begin(), char('a' + number % 26));
        while (number /= 26);
        return word;
    };
    std::string notation = "(root", declarations;
    const int count = 20000; // Past "xml".
    for (int i = 0; i < count; ++i)
        notation += " (u" + std::to_string(i) + ":a)";
    notation += " (b +c=x))";
    int number = 0;
    for (int i = 0; i < count; ++i, ++number) {
        while (letters(number) == "c" || letters(number) == "xml")
            ++number;
        declarations += " xmlns:" + letters(number) + "=\"u" + std::to_string(i) + "\"";
    }
    const std::string xml = xmlOf(Ref(xmlNsDocumentEncode(tree(notation))));
    EXPECT_EQ(xml.substr(0, 5 + declarations.size() + 1), "<root" + declarations + ">");
    EXPECT_NE(xml.find("<ba:a/>"), std::string::npos);
}

TEST(NsEncode, MapsOfTheSurroundingsAreUsedAndMapsForTheTopAreDeclared) {
    const struct {
        const char *tree;
        const char *around;
        const char *root;
        const char *xml;
    } rows[] = {
        {"(u:a (b))", "p=u", "", "<p:a><b/></p:a>"},
        {"(u:a (v:b))", "", "p=u =v", "<p:a xmlns:p=\"u\" xmlns=\"v\"><b/></p:a>"},
        {"(a (u:b))", "=u", "", "<a xmlns=\"\"><b xmlns=\"u\"/></a>"},
        {"(u:a +q=u +p=v @u:c=1)", "", "p=u", "<q:a q:c=\"1\" xmlns:q=\"u\" xmlns:p=\"v\"/>"},
        {"(u:a (v:b))", "a=w", "b=w",
         "<c:a xmlns:b=\"w\" xmlns:c=\"u\" xmlns:d=\"v\"><d:b/></c:a>"},
    };
    for (auto &row : rows) {
        Ref around = map(row.around), root = map(row.root);
        EXPECT_EQ(xmlOf(Ref(xml___NsDocumentEncode(tree(row.tree), around, root))), row.xml);
        EXPECT_EQ(describe(around), row.around);
    }
}

TEST(NsEncode, SharesWhatItDoesNotConvert) {
    Ref document = tree("(u:a @b=1 'text' !c)");
    xmlNsDocumentSetCharset(document.edit(), 3);
    xmlNsDocumentSetStandalone(document.edit(), 1);
    xmlNsDocumentSetVersion(document.edit(), str("1.7"));
    Ref location(voParserLocationCreate(nullptr, 5, 6, 7));
    xmlNsDocumentSetLocation(document.edit(), location);
    Ref encoded(xmlNsDocumentEncode(document));
    EXPECT_EQ(take(xmlDocumentVersion(encoded)), "1.7");
    EXPECT_EQ(xmlDocumentCharset(encoded), 3);
    EXPECT_EQ(xmlDocumentStandalone(encoded), 1);
    EXPECT_FALSE(xmlDocumentHasLocation(encoded));
    Ref from(xmlNsItemsItemElementAt(Ref(xmlNsDocumentItems(document)), 0));
    Ref to(xmlItemsItemElementAt(Ref(xmlDocumentItems(encoded)), 0));
    EXPECT_EQ(Ref(xmlElementItemTextAt(to, 0)), Ref(xmlNsElementItemTextAt(from, 0)));
    EXPECT_EQ(Ref(xmlElementItemCommentAt(to, 1)), Ref(xmlNsElementItemCommentAt(from, 1)));
    EXPECT_EQ(Ref(xmlElementAttributeTextAt(to, 0)), Ref(xmlNsElementAttributeTextAt(from, 0)));
    xmlElementAppendItemElement(to.edit(), Ref(xmlElementCreate(str("x"))));
    EXPECT_EQ(xmlElementItemsLength(to), 3);
}

} // namespace
