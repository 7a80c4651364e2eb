#include "tests/xml/codec.hpp"

using namespace test;

namespace {

/// The tree, or the error and its place.
std::string decoded(const std::string &xml) {
    const auto result = nsDecode(plain(xml));
    return result.document ? describe(result.document)
                           : result.error + " " + result.place.lineAndColumn();
}

TEST(NsDecode, OfAttributesThatComeToOneNameTheLastStays) {
    EXPECT_EQ(decoded("<a xmlns:p='u' xmlns:q='u' p:c='1' d='2' q:c='3'/>"),
              "(a +p=u +q=u @d=2 @u:c=3)");
    EXPECT_EQ(decoded("<a xmlns:p='' c='1' p:c='2' d='3'/>"), "(a +p= @c=2 @d=3)");
    std::string xml = "<a xmlns:p='u' xmlns:q='u'", tree = "(a +p=u +q=u @u:n0=p";
    for (int i = 0; i < 40; ++i)
        xml += " p:n" + std::to_string(i) + "='p'";
    for (int i = 1; i < 40; ++i) {
        xml += " q:n" + std::to_string(i) + "='q'";
        tree += " @u:n" + std::to_string(i) + "=q";
    }
    EXPECT_EQ(decoded(xml + "/>"), tree + ")");
}

TEST(NsDecode, TheFirstErrorIsReportedWhereItIs) {
    const std::string ns = "NAMESPACE";
    const std::string prefix = ns + "_PREFIX", unknown = ns + "_PREFIX_UNKNOWN";
    const std::string local = "LOCAL_NAME";
    const struct {
        const char *xml;
        std::string error;
    } rows[] = {
        {"<a xmlns:='u'/>", prefix + " 1:25"},
        {"<a xmlns:p:q='u'/>", prefix + " 1:25"},
        {"<a xmlns:1='u'/>", prefix + " 1:25"},
        {"<a xmlns='&unknown;'/>", ns + " 1:25"},
        {"<a xmlns:p='http://www.w3.org/2000/xmlns/'/>", ns + " 1:25"},
        {"<a xmlns='http://www.w3.org/2000/xmlns&#47;'/>", ns + " 1:25"},
        {"<q:a/>", unknown + " 1:22"},
        {"<xmlns:a/>", unknown + " 1:22"},
        {"<a\nq:b='1'/>", unknown + " 2:1"},
        {"<a><b xmlns:p='u'/><p:c/></a>", unknown + " 1:41"},
        {"<:a/>", prefix + " 1:22"},
        {"<a :b='1'/>", prefix + " 1:25"},
        {"<a:b:c/>", local + " 1:22"},
        {"<a::/>", local + " 1:22"},
        {"<a xmlns:p='u' p:='1'/>", local + " 1:37"},
        {"<a xmlns:p='u' p:1='1'/>", local + " 1:37"},
        // Declarations come first, then the name, the attributes and the content.
        {"<q:a r:b='1' xmlns:='u'><s:c/></q:a>", prefix + " 1:35"},
        {"<q:a a:b:c='1'><:c/></q:a>", unknown + " 1:22"},
        {"<a a:b:c='1'><:c/></a>", local + " 1:25"},
        {"<a><b><:c/></b><q:d/></a>", prefix + " 1:28"},
    };
    for (auto &row : rows)
        EXPECT_EQ(decoded(row.xml), row.error) << row.xml;
}

TEST(NsDecode, AnErrorHasNoLocationWhenTheDocumentHasNone) {
    const auto decoded = nsDecode(decode("<?xml version='1.0'?><q:a/>").document);
    EXPECT_EQ(decoded.error, "NAMESPACE_PREFIX_UNKNOWN");
    EXPECT_EQ(decoded.place.offset, -1);
}

TEST(NsDecode, SharesWhatItDoesNotConvert) {
    Ref document = plain("<a xmlns='u' b='1'>text<!--c--></a>");
    xmlDocumentSetCharset(document.edit(), 3);
    xmlDocumentSetStandalone(document.edit(), 1);
    xmlDocumentSetVersion(document.edit(), str("1.7"));
    xmlDocumentSetLocation(document.edit(), Ref(voParserLocationCreate(nullptr, 5, 6, 7)));
    const std::string before = describe(document);
    auto decoded = nsDecode(document).document;
    EXPECT_EQ(describe(document), before);
    EXPECT_EQ(take(xmlNsDocumentVersion(decoded)), "1.7");
    EXPECT_EQ(xmlNsDocumentCharset(decoded), 3);
    EXPECT_EQ(xmlNsDocumentStandalone(decoded), 1);
    EXPECT_EQ(Ref(xmlNsDocumentLocation(decoded)), Ref(xmlDocumentLocation(document)));

    Ref from(xmlItemsItemElementAt(Ref(xmlDocumentItems(document)), 0));
    Ref to(xmlNsItemsItemElementAt(Ref(xmlNsDocumentItems(decoded)), 0));
    EXPECT_EQ(Ref(xmlNsElementLocation(to)), Ref(xmlElementLocation(from)));
    EXPECT_EQ(Ref(xmlNsElementLocalName(to)), Ref(xmlElementName(from)));
    EXPECT_EQ(Ref(xmlNsElementItemTextAt(to, 0)), Ref(xmlElementItemTextAt(from, 0)));
    EXPECT_EQ(Ref(xmlNsElementItemCommentAt(to, 1)), Ref(xmlElementItemCommentAt(from, 1)));
    EXPECT_EQ(Ref(xmlNsElementAttributeTextAt(to, 0)), Ref(xmlElementAttributeTextAt(from, 1)));
    Ref attrFrom(xmlElementAttributeAt(from, 1));
    Ref attrTo(xmlNsElementAttributeAt(to, 0));
    EXPECT_EQ(Ref(xmlNsAttributeLocation(attrTo)), Ref(xmlAttributeLocation(attrFrom)));
}

TEST(NsDecode, ThePlainTreeMayBeMadeFirst) {
    auto document = plain("<p:a xmlns:p='u'><b><p:c>text</p:c></b><d/></p:a>");
    const auto decoded = nsDecode(document).document;
    xmlDocumentMakeAll(document);
    EXPECT_EQ(describe(decoded), "(u:a +p=u (b (u:c 'text')) (d))");
}

TEST(NsDecode, TheResultIsAnOrdinaryTree) {
    Ref items(xmlNsDocumentItems(nsDecode(plain("<a xmlns='u' b='1'><c/><d/></a>")).document));
    Ref el(xmlNsItemsItemElementAt(items, 0));
    items = {};
    xmlNsElementAppendItemElement(el.edit(), Ref(xmlNsElementItemElementAt(el, 0)));
    Ref child(xmlNsElementItemElementAt(el, 1));
    xmlNsElementAppendItemTextValue(child.edit(), str("x"));
    xmlNsElementSetItemElementAt(el.edit(), 1, child);
    xmlNsElementAppendAttributeNameTextValue(el.edit(), str("e"), nullptr, str("2"));
    Ref map(xmlNsElementNamespaceMap(el));
    xmlNsNamespaceMapAppendMapping(map.edit(), mapping("p=v"));
    xmlNsElementSetNamespaceMap(el.edit(), map);
    Ref changed(xmlNsDocumentCreate());
    Ref top(xmlNsItemsCreate());
    xmlNsItemsAppendItemElement(top.edit(), el);
    xmlNsDocumentSetItems(changed.edit(), top);
    EXPECT_EQ(describe(changed), "(u:a +=u +p=v @b=1 @e=2 (u:c) (u:d 'x') (u:c))");
}

} // namespace
