#include "tests/support.hpp"

namespace {

/// The common operations of one type.
template <class T> struct Operations {
    const char *name;
    std::string file;
    voSort *(*sort)();
    T *(*retain)(T *);
    void (*release)(T *);
    voObj *(*object)(T *);
    T *(*from)(voObj *);
    voString *(*toString)(T *);
    int64_t (*compare)(T *, T *);
    int (*equals)(T *, T *);
    T *(*createFrom)(T *);

    /// `other` is an object of another type.
    void check(Ref<T> made, voObj *other) const {
        SCOPED_TRACE(name);
        EXPECT_EQ(voObjSort(object(made)), sort());
        EXPECT_EQ(from(object(made)), made);
        EXPECT_EQ(from(nullptr), nullptr);
        EXPECT_EQ(object(nullptr), nullptr);
        EXPECT_EQ(retain(made), made);
        release(made);
        EXPECT_EQ(compare(made, made), 0);
        EXPECT_TRUE(equals(nullptr, nullptr));
        EXPECT_FALSE(equals(made, nullptr));
        EXPECT_LT(voObjCompare(nullptr, object(made)), 0);
        Ref copied(createFrom(made));
        EXPECT_NE(copied, made);
        EXPECT_EQ(text(copied), text(made));
        EXPECT_EQ(compare(made, copied), -compare(copied, made));
        EXPECT_ABORT(from(other), file, std::string("!obj || voObjSort(obj)==&vo___sort_") + name);
    }

  private:
    std::string text(T *obj) const { return test::take(toString(obj)); }
};

#define OPERATIONS(T, unit)                                                                        \
    Operations<T> {                                                                                \
#T, "source/vo/" unit ".cpp", T##Sort, T##Retain, T##Release, T##Obj, T##From,             \
            T##ToString, T##Compare, T##Equals, T##CreateFrom                                      \
    }

} // namespace

TEST(Object, EveryTypeHasTheCommonOperations) {
    Ref string(voStringCreate());
    Ref vector(voVectorCreate());
    voObj *other = voVectorObj(vector);
    OPERATIONS(voVector, "vo_vector").check(Ref(voVectorCreate()), voStringObj(string));
    OPERATIONS(voString, "vo_string").check(test::str(U"a\x10FFFF"), other);
    OPERATIONS(voBuffer, "vo_buffer").check(test::buffer("ab"), other);
    OPERATIONS(voDict, "vo_dict").check(Ref(voDictCreate()), other);
    OPERATIONS(voStore, "vo_store").check(Ref(voStoreCreateArray()), other);
    OPERATIONS(voEnum, "vo_enum").check(Ref(voEnumCreate()), other);
    OPERATIONS(voFlagset, "vo_flagset").check(Ref(voFlagsetCreate()), other);
    Ref location(voParserLocationCreate(string, 0, 1, 1));
    OPERATIONS(voParserLocation, "vo_location")
        .check(Ref(voParserLocationCreate(string, 4, 3, 2)), other);
    OPERATIONS(voParserLocationMap, "vo_location")
        .check(Ref(voParserLocationMapCreate(location, 1, nullptr, 0)), other);
    OPERATIONS(voMessage, "vo_message")
        .check(Ref(voMessageCreateFormatCstr(1, location, "x", -1)), other);
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
    Ref string = test::str(U"text");
    Ref same(voStringToString(string));
    EXPECT_EQ(same, string);
    Ref store(voStoreCreate());
    EXPECT_EQ(test::take(voStoreToString(store)), "voStore");
}

TEST(Object, CommonOperationsRefuseNullUnderTheirName) {
    auto context = [](std::string name, std::string text) {
        return name + ": source/vo/vo_string.cpp:[0-9]+: " + text + "\n";
    };
    Ref string(voStringCreate());
    EXPECT_DEATH(voStringRetain(nullptr), context("^stdfunc retain", "obj"));
    EXPECT_DEATH(voStringRelease(nullptr), context("^stdfunc release", "obj"));
    EXPECT_DEATH((void)test::take(voStringToString(nullptr)), context("^stdfunc tostring", "obj"));
    EXPECT_DEATH(voStringCompare(nullptr, string), context("^stdfunc compare a", "objA"));
    EXPECT_DEATH(voStringCompare(string, nullptr), context("^stdfunc compare b", "objB"));
}
