// Changing trees takes time in proportion to the number of changes.
#include "tests/timing/growth.hpp"
#include "tests/xml/notation.hpp"

using namespace test;

namespace {

/// As many edits below one root as that has children. They go to the first few of those, which stay
/// in the caches, so that nothing but the work on the whole list can take longer with its length.
template <class Layer, class Take> void expectLinearTaking(Take take) {
    expectLinear(200000, [&](int64_t edits) {
        Ref root = Layer::element("root");
        for (int64_t i = 0; i < edits; ++i)
            Layer::appendElement(root.edit(), Layer::element("child"));
        return secondsOf([&] {
            constexpr int64_t few = 100;
            for (int64_t i = 0; i < edits; ++i) {
                Ref child(take(root.edit(), i % few));
                Layer::renameElement(child.edit(), "changed");
                Layer::setElementAt(root.edit(), i % few, child);
            }
        });
    });
}

} // namespace

TEST(TreeTiming, OfTakingChildrenOutAndPuttingThemBackIsLinear) {
    expectLinearTaking<Plain>(xmlElementTakeItemElementAt);
    expectLinearTaking<Namespaced>(xmlNsElementTakeItemElementAt);
}

TEST(TreeTiming, OfAppendingItemsIsLinear) {
    Ref child(xmlElementCreate(str("b")));
    Ref value = str("text");
    expectLinear(200000, [&](int64_t n) {
        return secondsOf([&] {
            Ref el(xmlElementCreate(str("a")));
            for (int64_t i = 0; i < n; ++i) {
                xmlElementAppendItemElement(el.edit(), child);
                xmlElementAppendItemTextEscape(el.edit(), value);
            }
            EXPECT_EQ(xmlElementItemsLength(el), 2 * n);
        });
    });
}

TEST(TreeTiming, OfJoiningAttributeListsIsLinear) {
    expectLinear(200000, [](int64_t n) {
        Ref vector(voVectorCreate());
        for (int64_t i = 0; i < n; ++i)
            voVectorAppendObj(vector.edit(),
                              xmlAttributeObj(Plain::attribute("name" + std::to_string(i), "")));
        return secondsOf([&] {
            Ref attrs(xmlAttributesCreate());
            xmlAttributesSetVector(attrs.edit(), vector);
            xmlAttributesAppend(attrs.edit(), Ref(xmlAttributesCreateFrom(attrs)));
            EXPECT_EQ(xmlAttributesLength(attrs), n);
        });
    });
}
