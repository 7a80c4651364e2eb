// The operations that every type has, checked by the names of the type's functions.
#pragma once

#include "tests/support.hpp"

namespace test {

/// What the common operations gave for an object and one that differs from it.
struct CommonResults {
    voSort *sort;
    voObj *object, *objectOfNull;
    std::string text;
    const void *made, *retained, *from, *fromNull;
    int64_t refsRetained, refsReleased;
    int64_t comparedToItself, comparedToOther, comparedByOther;
    bool equalsItself, equalsOther, equalsNull, nullEqualsNull;
    std::function<void()> takeAnotherType;
};

inline void checkCommonResults(const char *name, const CommonResults &got) {
    SCOPED_TRACE(name);
    EXPECT_STREQ(got.sort->name, name);
    EXPECT_EQ(voObjSort(got.object), got.sort);
    EXPECT_EQ(got.objectOfNull, nullptr);
    EXPECT_EQ(got.from, got.made);
    EXPECT_EQ(got.fromNull, nullptr);
    EXPECT_EQ(got.retained, got.made);
    EXPECT_EQ(got.refsRetained, 2);
    EXPECT_EQ(got.refsReleased, 1);
    EXPECT_EQ(got.text, take(voObjToString(got.object)));
    EXPECT_EQ(got.comparedToItself, 0);
    EXPECT_NE(got.comparedToOther, 0);
    EXPECT_EQ(got.comparedToOther, -got.comparedByOther);
    EXPECT_TRUE(got.equalsItself && got.nullEqualsNull);
    EXPECT_FALSE(got.equalsOther || got.equalsNull);
    const std::string library = std::string_view(name).starts_with("vo") ? "vo" : "xml";
    EXPECT_DEATH(got.takeAnotherType(),
                 "stdfunc from: source/.*: !obj \\|\\| voObjSort\\(obj\\)==&" + library +
                     "___sort_" + name + "\n");
}

/// `made` and `other` are two objects of the type that differ; takes over both references.
template <class T>
void checkCommonOperations(const char *name, voSort *(*sort)(), T *(*retain)(T *),
                           void (*release)(T *), voObj *(*object)(T *), T *(*from)(voObj *),
                           voString *(*toString)(T *), int64_t (*compare)(T *, T *),
                           int (*equals)(T *, T *), T *made, T *other) {
    const Ref a(made), b(other);
    CommonResults results;
    results.sort = sort();
    results.object = object(a);
    results.objectOfNull = object(nullptr);
    results.text = take(toString(a));
    results.made = made;
    results.retained = retain(a);
    results.refsRetained = object(a)->refs;
    release(a);
    results.refsReleased = object(a)->refs;
    results.from = from(object(a));
    results.fromNull = from(nullptr);
    results.comparedToItself = compare(a, a);
    results.comparedToOther = compare(a, b);
    results.comparedByOther = compare(b, a);
    results.equalsItself = equals(a, a);
    results.equalsOther = equals(a, b);
    results.equalsNull = equals(a, nullptr);
    results.nullEqualsNull = equals(nullptr, nullptr);
    results.takeAnotherType = [from, sort] {
        const Ref vector(voVectorCreate());
        const Ref string(voStringCreate());
        (void)from(sort() == voVectorSort() ? voStringObj(string) : voVectorObj(vector));
    };
    checkCommonResults(name, results);
}

} // namespace test
