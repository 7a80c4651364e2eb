#include "tests/xml/layers.hpp"

#include <span>

using namespace test;

namespace {

/// An operation on an element and the list operation it forwards to: each gives the resulting list
/// or what it returned.
template <class Element, class List> struct Row {
    const char *name;
    std::string (*onElement)(Element **);
    std::string (*onList)(List **);
    std::string expected;
};
template <class Layer> struct Rows;

#define LAYER_TEXT "tests/xml/list_rows.inc"
#include "tests/xml/both_layers.inc"

/// Runs each row on a list that others hold too, by itself and as the list of an element.
template <class Layer, class List>
void checkRows(std::span<const Row<typename Layer::Element, List>> rows, List *shared,
               void (*setList)(typename Layer::Element **, List *)) {
    const std::string before = describe(shared);
    for (auto &row : rows) {
        SCOPED_TRACE(row.name);
        Ref list(vo::retained(shared));
        EXPECT_EQ(row.onList(list.edit()), row.expected);
        auto el = Layer::element("e");
        setList(el.edit(), shared);
        EXPECT_EQ(row.onElement(el.edit()), row.expected);
        EXPECT_EQ(describe(shared), before);
    }
}

} // namespace

LAYER_TEST_SUITE(Element);

TYPED_TEST(Element, ForwardsToItsLists) {
    using Rows = Rows<TypeParam>;
    checkRows<TypeParam, typename TypeParam::Attributes>(Rows::attributeRows, Rows::attributes(),
                                                         TypeParam::setElementAttributes);
    checkRows<TypeParam, typename TypeParam::Items>(Rows::itemRows, Rows::items(),
                                                    TypeParam::setElementItems);
}

TYPED_TEST(Element, CopiesOnlyWhatIsChanged) {
    auto el = TypeParam::element("e");
    Ref copy(TypeParam::copyElement(el));
    TypeParam::appendElementComment(copy.edit(), comment("c"));
    EXPECT_EQ(taken(TypeParam::elementItems(el)), "");
    EXPECT_EQ(taken(TypeParam::elementItems(copy)), "!c");
    EXPECT_EQ(Ref(TypeParam::elementAttributes(copy)), Ref(TypeParam::elementAttributes(el)));
}

TYPED_TEST(Element, ChangesInPlaceWhileNobodyElseHoldsIt) {
    auto el = TypeParam::element("e");
    TypeParam::appendElementComment(el.edit(), comment("c"));
    auto *sole = el.operator->();
    auto *items = Ref(TypeParam::elementItems(el)).operator->();
    TypeParam::appendElementComment(el.edit(), comment("d"));
    EXPECT_EQ(el, sole);
    EXPECT_EQ(Ref(TypeParam::elementItems(el)), items);
}

TYPED_TEST(Element, PutIntoItselfHoldsItselfAsItWas) {
    void (*operations[])(typename TypeParam::Element **) = {
        [](auto **el) { TypeParam::appendElement(el, *el); },
        [](auto **el) { TypeParam::prependElement(el, *el); },
        [](auto **el) { TypeParam::insertElement(el, 0, *el); },
        [](auto **el) { TypeParam::setElementAt(el, 0, *el); },
    };
    for (auto operation : operations) {
        auto el = TypeParam::element("e");
        TypeParam::appendElementComment(el.edit(), comment("c"));
        operation(el.edit());
        Ref items(TypeParam::elementItems(el));
        const bool first = describe(items.operator->()).starts_with("<e>");
        Ref inner(TypeParam::elementItemAt(el, first ? 0 : 1));
        EXPECT_NE(inner, el);
        EXPECT_EQ(taken(TypeParam::elementItems(inner)), "!c");
    }
}

TYPED_TEST(Element, MisuseAborts) {
    auto el = TypeParam::element("e");
    Ref<typename TypeParam::Element> none;
    const std::string file = TypeParam::file("element");
    EXPECT_ABORT((void)Ref(TypeParam::elementItems(nullptr)), file, "el");
    EXPECT_ABORT(TypeParam::appendElement(nullptr, nullptr), file, "el");
    EXPECT_ABORT(TypeParam::appendElement(none.edit(), nullptr), file, "*el");
    EXPECT_ABORT(TypeParam::setElementAttributes(el.edit(), nullptr), file, "attrs");
    EXPECT_ABORT(TypeParam::setElementItems(el.edit(), nullptr), file, "items");
    EXPECT_ABORT(TypeParam::appendElement(el.edit(), nullptr), TypeParam::file("item"), "obj");
}

TEST(PlainElement, ChecksItsName) {
    const char *file = "source/xml/base/xml_element.cpp", *check = "xmlValueNameOk( name )";
    auto el = Plain::element("p:a");
    xmlElementSetName(el.edit(), str("b"));
    EXPECT_EQ(take(xmlElementName(el)), "b");
    EXPECT_ABORT((void)Ref(xmlElementCreate(str("a b"))), file, check);
    EXPECT_ABORT(xmlElementSetName(el.edit(), str("")), file, check);
}
