#include "tests/xml/layers.hpp"

using namespace test;

namespace {

/// One kind of node: how an item comes to hold it, and what the item tells then.
template <class Item> struct Kind {
    const char *name;
    XML_ITEM_TYPE type;
    Item *(*create)();
    void (*set)(Item **);
    int (*is)(Item *);
    std::string (*get)(Item *);
    std::string content;
};
template <class Layer> struct Kinds;

#define LAYER_TEXT "tests/xml/item_rows.inc"
#include "tests/xml/both_layers.inc"

} // namespace

LAYER_TEST_SUITE(Item);

TYPED_TEST(Item, HoldsOneNodeOfOneKind) {
    for (auto &kind : Kinds<TypeParam>::rows) {
        SCOPED_TRACE(kind.name);
        Ref made(kind.create());
        Ref set(TypeParam::createItemText(textNode("old")));
        auto old = Ref(vo::retained(set.operator->()));
        kind.set(set.edit());
        EXPECT_EQ(describe(old.operator->()), "old");
        for (auto *item : {made.operator->(), set.operator->()}) {
            EXPECT_EQ(item->type(), kind.type);
            for (auto &other : Kinds<TypeParam>::rows) {
                const bool same = other.type == kind.type;
                EXPECT_EQ(other.is(item), same) << other.name;
                EXPECT_EQ(other.get(item) == "<null>", !same) << other.name;
            }
            EXPECT_EQ(kind.get(item), kind.content);
        }
    }
}

TYPED_TEST(Item, GivesTheVeryNodeItHolds) {
    auto text = textNode("a");
    Ref item(TypeParam::createItemText(text));
    EXPECT_EQ(Ref(TypeParam::itemText(item)), text);
    Ref plain(xmlItemCreateText(text)); // nodes may be shared between the layers
    EXPECT_EQ(Ref(xmlItemText(plain)), text);
}

TYPED_TEST(Item, MisuseAborts) {
    Ref item(TypeParam::createItemText(textNode("a")));
    Ref<typename TypeParam::Item> none;
    const std::string file = TypeParam::file("item");
    EXPECT_ABORT((void)Ref(TypeParam::createItem(XML_ITEM_TYPE_TEXT, nullptr)), file, "obj");
    EXPECT_ABORT((void)Ref(TypeParam::itemText(nullptr)), file, "item");
    EXPECT_ABORT(TypeParam::setItemComment(nullptr, nullptr), file, "item");
    EXPECT_ABORT(TypeParam::setItemComment(none.edit(), nullptr), file, "*item");
    EXPECT_ABORT(TypeParam::setItemComment(item.edit(), nullptr), file, "obj");
}

LAYER_TEST_SUITE(Items);

TYPED_TEST(Items, MayBeAppendedToThemselves) {
    Ref list(TypeParam::createItems());
    TypeParam::appendItemComment(list.edit(), comment("a"));
    TypeParam::appendItemComment(list.edit(), comment("b"));
    TypeParam::appendItems(list.edit(), list);
    EXPECT_EQ(describe(list.operator->()), "!a !b !a !b");
    Ref other(vo::retained(list.operator->()));
    TypeParam::insertItems(list.edit(), 1, list);
    EXPECT_EQ(describe(list.operator->()), "!a !a !b !a !b !b !a !b");
    EXPECT_EQ(describe(other.operator->()), "!a !b !a !b");
}

TYPED_TEST(Items, ShareTheirVectorUntilEitherChanges) {
    Ref list(TypeParam::createItems());
    TypeParam::appendItemComment(list.edit(), comment("a"));
    Ref vector(TypeParam::itemsVector(list));
    Ref copy(TypeParam::copyItems(list));
    EXPECT_EQ(Ref(TypeParam::itemsVector(copy)), vector);
    TypeParam::setItemsVector(copy.edit(), vector);
    voVectorClear(vector.edit());
    TypeParam::appendItemComment(copy.edit(), comment("b"));
    EXPECT_EQ(describe(list.operator->()), "!a");
    EXPECT_EQ(describe(copy.operator->()), "!a !b");
    EXPECT_EQ(Ref(TypeParam::itemAt(list, 0)), Ref(TypeParam::itemAt(copy, 0)));
}

TYPED_TEST(Items, MisuseAborts) {
    Ref list(TypeParam::createItems());
    Ref<typename TypeParam::Items> none;
    Ref wrong(voVectorCreate());
    voVectorAppendObj(wrong.edit(), xmlTextObj(textNode("a")));
    const std::string file = TypeParam::file("items");
    const std::string sort = std::is_same_v<TypeParam, Plain> ? "xmlItemSort()" : "xmlNsItemSort()";
    EXPECT_ABORT((void)Ref(TypeParam::itemsVector(nullptr)), file, "items");
    EXPECT_ABORT(TypeParam::appendItemComment(nullptr, nullptr), file, "items");
    EXPECT_ABORT(TypeParam::appendItemComment(none.edit(), nullptr), file, "*items");
    EXPECT_ABORT(TypeParam::appendItem(list.edit(), nullptr), file, "item");
    EXPECT_ABORT(TypeParam::setItemAt(list.edit(), 0, nullptr), file, "item");
    EXPECT_ABORT(TypeParam::appendItems(list.edit(), nullptr), file, "source");
    EXPECT_ABORT(TypeParam::setItemsVector(list.edit(), wrong), file,
                 "voVectorContainsOnly( vec, " + sort + " )");
    EXPECT_ABORT((void)Ref(TypeParam::itemAt(list, -1)), "source/vo/vo_vector.cpp",
                 "index >= 0 && index < vec->length");
}

TEST(NamespacedItems, TakeNoPlainItems) {
    Ref vector(voVectorCreate());
    voVectorAppendObj(vector.edit(), xmlItemObj(Ref(xmlItemCreateText(textNode("a")))));
    Ref list(xmlNsItemsCreate());
    EXPECT_ABORT(xmlNsItemsSetItemsVector(list.edit(), vector), "source/xml/ns/xml_ns_items.cpp",
                 "voVectorContainsOnly( vec, xmlNsItemSort() )");
}
