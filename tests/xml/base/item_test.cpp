#include "tests/xml/notation.hpp"

using namespace test;

namespace {

/// The answers whether an item is of each type, and what the getters give that do not give null.
std::string join(std::initializer_list<int> types, std::initializer_list<std::string> nodes) {
    std::string all;
    for (int type : types)
        all += std::to_string(type);
    for (const std::string &node : nodes)
        if (node != "<null>") all += " " + node;
    return all;
}

std::string told(XML_ITEM *item) {
    return join({xmlItemIsElement(item), xmlItemIsProcessingInstruction(item),
                 xmlItemIsComment(item), xmlItemIsText(item), xmlItemIsCdata(item)},
                {taken(xmlItemElement(item)), taken(xmlItemProcessingInstruction(item)),
                 taken(xmlItemComment(item)), taken(xmlItemText(item)),
                 taken(xmlItemTextValue(item)), taken(xmlItemTextTryUnescape(item)),
                 taken(xmlItemCdata(item))});
}
std::string told(XML_NS_ITEM *item) {
    return join({xmlNsItemIsElement(item), xmlNsItemIsProcessingInstruction(item),
                 xmlNsItemIsComment(item), xmlNsItemIsText(item), xmlNsItemIsCdata(item)},
                {taken(xmlNsItemElement(item)), taken(xmlNsItemProcessingInstruction(item)),
                 taken(xmlNsItemComment(item)), taken(xmlNsItemText(item)),
                 taken(xmlNsItemTextValue(item)), taken(xmlNsItemTextTryUnescape(item)),
                 taken(xmlNsItemCdata(item))});
}

/// An item that is made from a node, and one that is shared and then set to it.
template <class Layer>
void checkItem(auto create, auto set, const auto &node, const char *expected) {
    Ref made(create(node));
    Ref changed(Layer::createItemText(textNode("old")));
    Ref other(vo::retained(changed.operator->()));
    set(changed.edit(), node);
    EXPECT_EQ(told(made), expected);
    EXPECT_EQ(told(changed), expected);
    EXPECT_EQ(told(other), "00010 'old' old old");
    EXPECT_EQ(expected[Layer::itemType(made)], '1');
}

} // namespace

TEST(PlainItem, HoldsOneNodeOfOneKind) {
    const auto check = [](auto create, auto set, auto argument, const char *told) {
        checkItem<Plain>(create, set, argument, told);
    };
    check(xmlItemCreateElement, xmlItemSetElement, Plain::element("u:e"), "10000 (u:e)");
    check(xmlItemCreateProcessingInstruction, xmlItemSetProcessingInstruction, instruction("p"),
          "01000 ?p");
    check(xmlItemCreateComment, xmlItemSetComment, comment("c"), "00100 !c");
    check(xmlItemCreateText, xmlItemSetText, textNode("&lt;"), "00010 '&lt;' &lt; <");
    check(xmlItemCreateTextValue, xmlItemSetTextValue, str("&lt;"), "00010 '&lt;' &lt; <");
    check(xmlItemCreateTextEscape, xmlItemSetTextEscape, str("&lt;"),
          "00010 '&amp;lt;' &amp;lt; &lt;");
    check(xmlItemCreateCdata, xmlItemSetCdata, cdata("d"), "00001 #d");
}

TEST(NamespacedItem, HoldsOneNodeOfOneKind) {
    const auto check = [](auto create, auto set, auto argument, const char *told) {
        checkItem<Namespaced>(create, set, argument, told);
    };
    check(xmlNsItemCreateElement, xmlNsItemSetElement, Namespaced::element("u:e"), "10000 (u:e)");
    check(xmlNsItemCreateProcessingInstruction, xmlNsItemSetProcessingInstruction, instruction("p"),
          "01000 ?p");
    check(xmlNsItemCreateComment, xmlNsItemSetComment, comment("c"), "00100 !c");
    check(xmlNsItemCreateText, xmlNsItemSetText, textNode("&lt;"), "00010 '&lt;' &lt; <");
    check(xmlNsItemCreateTextValue, xmlNsItemSetTextValue, str("&lt;"), "00010 '&lt;' &lt; <");
    check(xmlNsItemCreateTextEscape, xmlNsItemSetTextEscape, str("&lt;"),
          "00010 '&amp;lt;' &amp;lt; &lt;");
    check(xmlNsItemCreateCdata, xmlNsItemSetCdata, cdata("d"), "00001 #d");
}

LAYER_TEST_SUITE(Item);

TYPED_TEST(Item, GivesTheVeryNodeItHolds) {
    auto text = textNode("a");
    Ref item(TypeParam::createItemText(text));
    EXPECT_EQ(Ref(TypeParam::itemText(item)), text);
    Ref plain(xmlItemCreateText(text)); // nodes may be shared between the layers
    EXPECT_EQ(Ref(xmlItemText(plain)), text);
}

TYPED_TEST(Item, MisuseAborts) {
    const std::string file = TypeParam::file("item");
    EXPECT_ABORT((void)Ref(TypeParam::createItem(XML_ITEM_TYPE_TEXT, nullptr)), file, "obj");
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
    Ref wrong(voVectorCreate());
    voVectorAppendObj(wrong.edit(), xmlTextObj(textNode("a")));
    const std::string file = TypeParam::file("items");
    const std::string sort = std::is_same_v<TypeParam, Plain> ? "xmlItemSort()" : "xmlNsItemSort()";
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
