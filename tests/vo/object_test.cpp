#include "tests/common_operations.hpp"

using namespace test;

namespace {

voVector *vectorOf(voString *item) {
    voVector *vector = voVectorCreate();
    voVectorAppendObj(&vector, voStringObj(item));
    return vector;
}

voDict *dictOf(voString *key) {
    voDict *dict = voDictCreate();
    voDictSetStringKey(&dict, key, voStringObj(key));
    return dict;
}

/// The copy is another object with the same text.
template <class T> void checkCopy(T *taken, T *(*createFrom)(T *)) {
    Ref source(taken), copy(createFrom(source));
    voObj *object = vo::obj(copy.operator->());
    SCOPED_TRACE(voObjSort(object)->name);
    EXPECT_NE(copy, source);
    EXPECT_EQ(object->refs, 1);
    EXPECT_EQ(take(voObjToString(object)), take(voObjToString(vo::obj(taken))));
}

} // namespace

TEST(Object, OfEveryTypeHasTheCommonOperations) {
    Ref string = str("a");
    checkCommonOperations("voVector", voVectorSort, voVectorRetain, voVectorRelease, voVectorObj,
                          voVectorFrom, voVectorToString, voVectorCompare, voVectorEquals,
                          voVectorCreate(), vectorOf(string));
    checkCommonOperations("voString", voStringSort, voStringRetain, voStringRelease, voStringObj,
                          voStringFrom, voStringToString, voStringCompare, voStringEquals,
                          str("a").take(), str("b").take());
    checkCommonOperations("voBuffer", voBufferSort, voBufferRetain, voBufferRelease, voBufferObj,
                          voBufferFrom, voBufferToString, voBufferCompare, voBufferEquals,
                          buffer("a").take(), buffer("b").take());
    checkCommonOperations("voDict", voDictSort, voDictRetain, voDictRelease, voDictObj, voDictFrom,
                          voDictToString, voDictCompare, voDictEquals, voDictCreate(),
                          dictOf(string));
    checkCommonOperations("voStore", voStoreSort, voStoreRetain, voStoreRelease, voStoreObj,
                          voStoreFrom, voStoreToString, voStoreCompare, voStoreEquals,
                          voStoreCreate(), voStoreCreateArray());
    checkCommonOperations("voEnum", voEnumSort, voEnumRetain, voEnumRelease, voEnumObj, voEnumFrom,
                          voEnumToString, voEnumCompare, voEnumEquals, voEnumCreate(),
                          voEnumCreate());
    checkCommonOperations("voFlagset", voFlagsetSort, voFlagsetRetain, voFlagsetRelease,
                          voFlagsetObj, voFlagsetFrom, voFlagsetToString, voFlagsetCompare,
                          voFlagsetEquals, voFlagsetCreate(), voFlagsetCreate());
    checkCommonOperations("voParserLocation", voParserLocationSort, voParserLocationRetain,
                          voParserLocationRelease, voParserLocationObj, voParserLocationFrom,
                          voParserLocationToString, voParserLocationCompare, voParserLocationEquals,
                          voParserLocationCreate(string, 0, 1, 1),
                          voParserLocationCreate(string, 4, 3, 2));
    checkCommonOperations("voParserLocationMap", voParserLocationMapSort, voParserLocationMapRetain,
                          voParserLocationMapRelease, voParserLocationMapObj,
                          voParserLocationMapFrom, voParserLocationMapToString,
                          voParserLocationMapCompare, voParserLocationMapEquals,
                          voParserLocationMapCreate(nullptr, 1, nullptr, 0),
                          voParserLocationMapCreate(nullptr, 1, nullptr, 0));
    checkCommonOperations("voMessage", voMessageSort, voMessageRetain, voMessageRelease,
                          voMessageObj, voMessageFrom, voMessageToString, voMessageCompare,
                          voMessageEquals, voMessageCreateFormatCstr(1, nullptr, "x", -1),
                          voMessageCreateFormatCstr(1, nullptr, "y", -1));
}

TEST(Object, OfEveryTypeIsCopied) {
    Ref string = str("a");
    checkCopy(vectorOf(string), voVectorCreateFrom);
    checkCopy(str("b").take(), voStringCreateFrom);
    checkCopy(buffer("b").take(), voBufferCreateFrom);
    checkCopy(dictOf(string), voDictCreateFrom);
    checkCopy(voStoreCreateArray(), voStoreCreateFrom);
    checkCopy(voEnumCreate(), voEnumCreateFrom);
    checkCopy(voFlagsetCreate(), voFlagsetCreateFrom);
    checkCopy(voParserLocationCreate(string, 4, 3, 2), voParserLocationCreateFrom);
    checkCopy(voParserLocationMapCreate(nullptr, 1, nullptr, 0), voParserLocationMapCreateFrom);
    checkCopy(voMessageCreateFormatCstr(1, nullptr, "y", -1), voMessageCreateFrom);
}

TEST(Object, MayBeOfAnyType) {
    Ref string = str("a");
    voObj *object = voObjRetain(voStringObj(string));
    EXPECT_FALSE(vo::isSole<voString>(string));
    voObjRelease(object);
    EXPECT_TRUE(vo::isSole<voString>(string));
    EXPECT_LT(voObjCompare(nullptr, object), 0);
}

TEST(Object, ValuesCompareByContentAndTheRestByIdentity) {
    Ref a(voEnumCreate()), b(voEnumCreate());
    EXPECT_FALSE(voEnumEquals(a, b));
    EXPECT_EQ(voEnumCompare(a, b), -voEnumCompare(b, a));
    Ref string(voStringCreate());
    Ref vector(voVectorCreate());
    voObj *one = voStringObj(string), *two = voVectorObj(vector);
    EXPECT_NE(voObjCompare(one, two), 0);
    EXPECT_EQ(voObjCompare(one, two), -voObjCompare(two, one));
}

TEST(Object, TextIsTheStringItselfOrTheNameOfTheSort) {
    Ref string = str(U"text");
    Ref same(voStringToString(string));
    EXPECT_EQ(same, string);
    Ref store(voStoreCreate());
    EXPECT_EQ(take(voStoreToString(store)), "voStore");
}
