#include "tests/xml/notation.hpp"

using namespace test;

LAYER_TEST_SUITE(Document);

TYPED_TEST(Document, BeginsEmptyWithTheUsualDeclaration) {
    Ref doc(TypeParam::createDocument());
    EXPECT_EQ(take(TypeParam::version(doc)), "1.0");
    EXPECT_EQ(TypeParam::charset(doc), VO_CHARSET_UTF_8);
    EXPECT_EQ(TypeParam::standalone(doc), 0);
    EXPECT_EQ(taken(TypeParam::documentItems(doc)), "");
    EXPECT_EQ(TypeParam::hasLocation(doc), 0);
}

TYPED_TEST(Document, KeepsWhatIsSetApartFromOtherHolders) {
    Ref doc(TypeParam::createDocument());
    Ref copy(TypeParam::copyDocument(doc));
    Ref items(TypeParam::createItems());
    TypeParam::setDocumentItems(copy.edit(), items);
    EXPECT_EQ(Ref(TypeParam::documentItems(copy)), items);
    TypeParam::appendItemComment(items.edit(), comment("c"));
    EXPECT_EQ(taken(TypeParam::documentItems(copy)), "");

    Ref shared(vo::retained(copy.operator->()));
    TypeParam::setVersion(copy.edit(), str("1.10"));
    TypeParam::setCharset(copy.edit(), 50);
    TypeParam::setStandalone(copy.edit(), -7);
    EXPECT_EQ(take(TypeParam::version(copy)), "1.10");
    EXPECT_EQ(TypeParam::charset(copy), 50);
    EXPECT_EQ(TypeParam::standalone(copy), 1);
    EXPECT_EQ(take(TypeParam::version(shared)), "1.0");
    EXPECT_EQ(TypeParam::charset(shared), VO_CHARSET_UTF_8);
    EXPECT_EQ(TypeParam::standalone(shared), 0);
}

TYPED_TEST(Document, MisuseAborts) {
    Ref doc(TypeParam::createDocument());
    const std::string file = TypeParam::file("document");
    for (const char *version : {"", "2.0", "1.x"})
        EXPECT_ABORT(TypeParam::setVersion(doc.edit(), str(version)), file,
                     "xmlValueVersionNumOk( version )");
    for (int64_t charset : {51, -1})
        EXPECT_ABORT(TypeParam::setCharset(doc.edit(), charset), file, "VO_CHARSET_OK( charset )");
}
