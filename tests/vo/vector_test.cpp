#include "tests/support.hpp"

using test::str;

namespace {

constexpr const char *unit = "source/vo/vo_vector.cpp";

Ref<voVector> vectorOf(std::initializer_list<const char *> texts) {
    Ref vector(voVectorCreate());
    for (const char *text : texts)
        voVectorAppendObj(vector.edit(), voStringObj(str(text)));
    return vector;
}

std::string joined(voVector *vector) {
    std::string all;
    for (int64_t i = 0; i < voVectorLength(vector); ++i) {
        Ref item(voVectorObjAt(vector, i));
        all += test::take(voObjToString(item));
    }
    return all;
}

/// Vectors that each hold the next one; the innermost holds `leaf`.
Ref<voVector> nested(int depth, const char *leaf) {
    Ref vector = vectorOf({leaf});
    for (int i = 1; i < depth; ++i) {
        Ref outer(voVectorCreate());
        voVectorAppendObj(outer.edit(), voVectorObj(vector));
        vector = std::move(outer);
    }
    return vector;
}

} // namespace

TEST(Vector, ComparesItemByItemThenByLength) {
    Ref<voVector> ascending[] = {vectorOf({}), vectorOf({"a"}), vectorOf({"a", "a"}),
                                 vectorOf({"a", "b"}), vectorOf({"b"})};
    for (auto &a : ascending)
        for (auto &b : ascending) {
            Ref copy(voVectorCreateFrom(b));
            EXPECT_EQ(voVectorCompare(a, copy) < 0, &a < &b);
            EXPECT_EQ(voVectorCompare(a, copy) > 0, &a > &b);
        }
}

TEST(Vector, ComparesWhatItHoldsLikewise) {
    auto around = [](Ref<voVector> inner, const char *last) {
        Ref outer(voVectorCreate());
        voVectorAppendObj(outer.edit(), voVectorObj(inner));
        voVectorAppendObj(outer.edit(), voStringObj(str(last)));
        return outer;
    };
    Ref outer = around(vectorOf({"a"}), "b");
    EXPECT_TRUE(voVectorEquals(outer, around(vectorOf({"a"}), "b")));
    EXPECT_LT(voVectorCompare(outer, around(vectorOf({"a", "a"}), "a")), 0);
    EXPECT_LT(voVectorCompare(outer, around(vectorOf({"a"}), "c")), 0);
}

TEST(Vector, InsertsBeforeAPlace) {
    Ref vector = vectorOf({"a", "d"});
    voVectorInsert(vector.edit(), 1, vectorOf({"b", "c"}));
    voVectorInsertObj(vector.edit(), 4, voStringObj(str("e")));
    voVectorInsertObj(vector.edit(), 0, voStringObj(str("<")));
    voVectorInsert(vector.edit(), 3, vectorOf({}));
    EXPECT_EQ(joined(vector), "<abcde");
    voVectorDelAt(vector.edit(), 2);
    EXPECT_EQ(joined(vector), "<acde");
}

TEST(Vector, InsertsItsOwnItems) {
    Ref vector = vectorOf({"a", "b", "c"});
    voVectorInsert(vector.edit(), 1, vector);
    EXPECT_EQ(joined(vector), "aabcbc");
}

TEST(Vector, HoldsItselfAsItWas) {
    Ref vector = vectorOf({"a"});
    voVectorAppendObj(vector.edit(), voVectorObj(vector));
    voVectorSetObjAt(vector.edit(), 0, voVectorObj(vector));
    ASSERT_EQ(voVectorLength(vector), 2);
    Ref first(voVectorObjAt(vector, 0)), second(voVectorObjAt(vector, 1));
    EXPECT_EQ(voVectorLength(voVectorFrom(first)), 2);
    EXPECT_EQ(voVectorLength(voVectorFrom(second)), 1);
}

TEST(Vector, ReplacesAnItemByItself) {
    Ref vector = vectorOf({"a"});
    Ref item(voVectorObjAt(vector, 0));
    voObj *borrowed = item;
    item = Ref<voObj>();
    voVectorSetObjAt(vector.edit(), 0, borrowed);
    EXPECT_EQ(joined(vector), "a");
}

TEST(Vector, PopsWhatWasPushed) {
    Ref vector(voVectorCreate());
    Ref item = str("x");
    voVectorPush(vector.edit(), voStringObj(item));
    Ref shared(voVectorRetain(vector));
    Ref popped(voVectorPop(vector.edit()));
    EXPECT_EQ(popped, voStringObj(item));
    EXPECT_EQ(voVectorLength(vector), 0);
    EXPECT_EQ(joined(shared), "x");
    EXPECT_ABORT((void)Ref(voVectorPop(vector.edit())), unit, "(*vec)->length > 0");
}

TEST(Vector, KnowsWhetherItHoldsOneSortOnly) {
    Ref vector = vectorOf({});
    EXPECT_TRUE(voVectorContainsOnly(vector, voVectorSort()));
    voVectorAppendObj(vector.edit(), voStringObj(str("a")));
    EXPECT_TRUE(voVectorContainsOnly(vector, voStringSort()));
    voVectorAppendObj(vector.edit(), voVectorObj(vector));
    EXPECT_FALSE(voVectorContainsOnly(vector, voStringSort()));
}

TEST(Vector, RefusesWhatIsOutside) {
    Ref vector = vectorOf({"a"});
    voObj *item = voVectorObj(vector);
    const char *inside = "index >= 0 && index < (*vec)->length";
    EXPECT_ABORT((void)Ref(voVectorObjAt(vector, 1)), unit, "index >= 0 && index < vec->length");
    EXPECT_ABORT((void)Ref(voVectorObjAt(vector, -1)), unit, "index >= 0 && index < vec->length");
    EXPECT_ABORT(voVectorSetObjAt(vector.edit(), 1, item), unit, inside);
    EXPECT_ABORT(voVectorDelAt(vector.edit(), 1), unit, inside);
    EXPECT_ABORT(voVectorInsertObj(vector.edit(), 2, item), unit,
                 "index >= 0 && index <= (*vec)->length");
}

TEST(Vector, NestsAsDeepAsMemoryGoes) {
    test::onSmallStack([] {
        Ref a = nested(1'000'000, "a"), same = nested(1'000'000, "a"), b = nested(1'000'000, "b");
        EXPECT_TRUE(voVectorEquals(a, same));
        EXPECT_LT(voVectorCompare(a, b), 0);
    });
}

TEST(Vector, ComparesPartsThatAreSharedOnce) {
    Ref<voVector> both[] = {vectorOf({"a"}), vectorOf({"a"})};
    for (Ref<voVector> &vector : both)
        for (int i = 0; i < 100; ++i) {
            Ref outer(voVectorCreate());
            voVectorAppendObj(outer.edit(), voVectorObj(vector));
            voVectorAppendObj(outer.edit(), voVectorObj(vector));
            vector = std::move(outer);
        }
    EXPECT_TRUE(voVectorEquals(both[0], both[1]));
}
