#include "source/xml/ns/xml_ns_document_encode.hpp"
#include "tests/xml/codec.hpp"

using namespace test;

namespace {

std::string encoded(const std::string &notation) {
    return xmlOf(Ref(xmlNsDocumentEncode(tree(notation))));
}

TEST(NsEncode, NamesGetTheEarliestBindingAndDeclarationsWhereNeeded) {
    const std::string xml = "http://www.w3.org/XML/1998/namespace:";
    const struct {
        std::string tree;
        const char *xml;
    } rows[] = {
        {"(a (b @c=1) 'text' !c ?p #d)", "<a><b c=\"1\"/>text<!--c--><?p?><![CDATA[d]]></a>"},
        // Namespaces that nobody declares.
        {"(u:a (u:b @u:c=1 @d=2))", "<a:a xmlns:a=\"u\"><a:b a:c=\"1\" d=\"2\"/></a:a>"},
        {"(a (u:b) (v:c)) (v:d @w:e=1)",
         "<a xmlns:a=\"u\" xmlns:b=\"v\" xmlns:c=\"w\"><a:b/><b:c/></a>"
         "<b:d c:e=\"1\" xmlns:a=\"u\" xmlns:b=\"v\" xmlns:c=\"w\"/>"},
        {"(a (b +c=w) (u:d +a=u (v:e +=x)) (v:f))",
         "<a xmlns:b=\"v\"><b xmlns:c=\"w\"/><a:d xmlns:a=\"u\"><b:e xmlns=\"x\"/></a:d>"
         "<b:f/></a>"},
        // A default namespace does for elements and not for attributes.
        {"(u:a +=u (u:b @c=1))", "<a xmlns=\"u\"><b c=\"1\"/></a>"},
        {"(u:a +=u (u:b @u:c=1))", "<a:a xmlns:a=\"u\" xmlns=\"u\"><a:b a:c=\"1\"/></a:a>"},
        {"(u:a +=u +p=u (u:b @u:c=1))", "<a xmlns=\"u\" xmlns:p=\"u\"><b p:c=\"1\"/></a>"},
        // What is declared again comes last; on the way out the former order is back.
        {"(u:a +p=u +q=u (u:b +p=u (u:c @u:d=1)) (u:e))",
         "<p:a xmlns:p=\"u\" xmlns:q=\"u\"><q:b xmlns:p=\"u\"><q:c q:d=\"1\"/></q:b><p:e/></p:a>"},
        {"(u:a +p=u (v:b +p=v (v:c)) (u:d))",
         "<p:a xmlns:p=\"u\"><p:b xmlns:p=\"v\"><p:c/></p:b><p:d/></p:a>"},
        // Elements without namespace under a default namespace.
        {"(u:a +=u (b (u:c (u:d)) (e)) (u:f))",
         "<a xmlns=\"u\"><b xmlns=\"\"><c xmlns=\"u\"><d/></c><e xmlns=\"\"/></b><f/></a>"},
        {"(a +=u +p=u (u:b))", "<a xmlns:p=\"u\" xmlns=\"\"><p:b xmlns=\"u\"/></a>"},
        {"(u:a +=u (b +p=v (v:c +=w) (u:d)))",
         "<a xmlns=\"u\"><b xmlns:p=\"v\" xmlns=\"\"><p:c xmlns=\"w\"/><d xmlns=\"u\"/></b></a>"},
        {"(a +=)", "<a xmlns=\"\"/>"},
        // The built-in prefix.
        {"(" + xml + "a @" + xml + "lang=de)", "<xml:a xml:lang=\"de\"/>"},
        {"(" + xml + "a +p=http://www.w3.org/XML/1998/namespace @" + xml + "lang=de)",
         "<p:a p:lang=\"de\" xmlns:p=\"http://www.w3.org/XML/1998/namespace\"/>"},
        // Values are escaped.
        {"(a<b&\"c:a +p=a<b&\"c)", "<p:a xmlns:p='a&lt;b&amp;\"c'/>"},
        // Names that declarations would have: the one placed last stays.
        {"(a +=u @xmlns=1 @b=2)", "<a b=\"2\" xmlns=\"\"/>"},
        {"(u:a +xmlns=u +p=v @u:p=1)", "<xmlns:a xmlns:xmlns=\"u\" xmlns:p=\"v\"/>"},
        {"(a +xml=u @u:b=1 @c=2 @" + xml + "b=3)", "<a c=\"2\" xml:b=\"3\" xmlns:xml=\"u\"/>"},
    };
    for (auto &row : rows)
        EXPECT_EQ(encoded(row.tree), row.xml) << row.tree;
}

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
    const std::string xml = encoded(notation);
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

TEST(NsEncodeDeathTest, AMissingDocumentAborts) {
    EXPECT_ABORT(Ref result(xmlNsDocumentEncode(nullptr)),
                 "source/xml/ns/xml_ns_document_encode.cpp", "doc");
}

} // namespace
