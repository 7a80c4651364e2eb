#include "tests/xml/list_operations.hpp"

using namespace test;

namespace {

ListOperations<XML_ELEMENT, XML_ATTRIBUTES> attributeOperations() {
    return {attributesOf<Plain>("@a=1 @b=x&lt; @u:c=3"), xmlElementSetAttributes,
            xmlElementAttributes};
}

ListOperations<XML_ELEMENT, XML_ITEMS> itemOperations() {
    return {itemsOf<Plain>("(u:e) ?p !c '&lt;' #d"), xmlElementSetItems, xmlElementItems};
}

} // namespace

TEST(PlainElement, ReadsAttributesAsItsListDoes) {
    const auto check = attributeOperations();
    check(xmlElementAttributesLength, xmlAttributesLength, "3");
    check(xmlElementAttributeAt, xmlAttributesAttributeAt, "@u:c=3", 2);
    check(xmlElementAttributeTextAt, xmlAttributesAttributeTextAt, "'x&lt;'", 1);
    check(xmlElementAttributeTextValueAt, xmlAttributesAttributeTextValueAt, "x&lt;", 1);
    check(xmlElementAttributeTextTryUnescapeAt, xmlAttributesAttributeTextTryUnescapeAt, "x<", 1);
    check(xmlElementAttribute, xmlAttributesAttribute, "@u:c=3", str("u:c"));
    check(xmlElementAttribute, xmlAttributesAttribute, "<null>", str("c"));
    check(xmlElementAttributeText, xmlAttributesAttributeText, "'x&lt;'", str("b"));
    check(xmlElementAttributeTextValue, xmlAttributesAttributeTextValue, "x&lt;", str("b"));
    check(xmlElementAttributeTextTryUnescape, xmlAttributesAttributeTextTryUnescape, "x<",
          str("b"));
    check(xmlElementAttributeTextTryUnescape, xmlAttributesAttributeTextTryUnescape, "<null>",
          str("d"));
    check(xmlElementHasAttribute, xmlAttributesHasAttribute, "1", str("u:c"));
    check(xmlElementHasAttribute, xmlAttributesHasAttribute, "0", str("v:c"));
    check(xmlElementAttributeNameAt, xmlAttributesAttributeNameAt, "u:c", 2);
}

TEST(PlainElement, ChangesAttributesAsItsListDoes) {
    const auto check = attributeOperations();
    check(xmlElementAttributesClear, xmlAttributesClear, "");
    check(xmlElementSetAttributeAt, xmlAttributesSetAttributeAt, "@a=9 @u:c=3", 1,
          Plain::attribute("a", "9"));
    check(xmlElementSetAttributeNameAt, xmlAttributesSetAttributeNameAt, "@u:c=1 @b=x&lt;", 0,
          str("u:c"));
    check(xmlElementSetAttributeNameAt, xmlAttributesSetAttributeNameAt, "@a=1 @b=x&lt; @c=3", 2,
          str("c"));
    check(xmlElementSetAttributeTextAt, xmlAttributesSetAttributeTextAt, "@a=1 @b=9 @u:c=3", 1,
          textNode("9"));
    check(xmlElementSetAttributeTextValueAt, xmlAttributesSetAttributeTextValueAt,
          "@a=1 @b=&gt; @u:c=3", 1, str("&gt;"));
    check(xmlElementSetAttributeTextEscapeAt, xmlAttributesSetAttributeTextEscapeAt,
          "@a=1 @b=&amp;gt; @u:c=3", 1, str("&gt;"));
    check(xmlElementSetAttributeNameTextAt, xmlAttributesSetAttributeNameTextAt, "@a=1 @u:c=9", 1,
          str("u:c"), textNode("9"));
    check(xmlElementSetAttributeNameTextValueAt, xmlAttributesSetAttributeNameTextValueAt,
          "@d=&gt; @b=x&lt; @u:c=3", 0, str("d"), str("&gt;"));
    check(xmlElementSetAttributeNameTextEscapeAt, xmlAttributesSetAttributeNameTextEscapeAt,
          "@d=&amp;gt; @b=x&lt; @u:c=3", 0, str("d"), str("&gt;"));
    check(xmlElementDelAttributeAt, xmlAttributesDelAttributeAt, "@a=1 @u:c=3", 1);
    check(xmlElementSetAttribute, xmlAttributesSetAttribute, "@a=1 @b=9 @u:c=3",
          Plain::attribute("b", "9"));
    check(xmlElementSetAttribute, xmlAttributesSetAttribute, "@a=1 @b=x&lt; @u:c=3 @v:c=9",
          Plain::attribute("v:c", "9"));
    check(xmlElementSetAttributeNameText, xmlAttributesSetAttributeNameText, "@a=9 @b=x&lt; @u:c=3",
          str("a"), textNode("9"));
    check(xmlElementSetAttributeNameTextValue, xmlAttributesSetAttributeNameTextValue,
          "@a=1 @b=x&lt; @u:c=&gt;", str("u:c"), str("&gt;"));
    check(xmlElementSetAttributeNameTextEscape, xmlAttributesSetAttributeNameTextEscape,
          "@a=1 @b=x&lt; @u:c=3 @c=&amp;gt;", str("c"), str("&gt;"));
    check(xmlElementDelAttribute, xmlAttributesDelAttribute, "@a=1 @u:c=3", str("b"));
    check(xmlElementDelAttribute, xmlAttributesDelAttribute, "@a=1 @b=x&lt; @u:c=3", str("u:b"));
}

TEST(PlainElement, AddsAttributesAsItsListDoes) {
    const auto check = attributeOperations();
    check(xmlElementInsertAttributes, xmlAttributesInsert, "@d=8 @a=9 @b=x&lt; @u:c=3", 1,
          attributesOf<Plain>("@d=8 @a=9"));
    check(xmlElementInsertAttribute, xmlAttributesInsertAttribute, "@a=1 @u:c=9 @b=x&lt;", 1,
          Plain::attribute("u:c", "9"));
    check(xmlElementInsertAttributeNameText, xmlAttributesInsertAttributeNameText,
          "@a=1 @c=9 @b=x&lt; @u:c=3", 1, str("c"), textNode("9"));
    check(xmlElementInsertAttributeNameTextValue, xmlAttributesInsertAttributeNameTextValue,
          "@a=1 @d=&gt; @b=x&lt; @u:c=3", 1, str("d"), str("&gt;"));
    check(xmlElementInsertAttributeNameTextEscape, xmlAttributesInsertAttributeNameTextEscape,
          "@a=1 @d=&amp;gt; @b=x&lt; @u:c=3", 1, str("d"), str("&gt;"));
    check(xmlElementPrependAttributes, xmlAttributesPrepend, "@u:c=8 @d=9 @a=1 @b=x&lt;",
          attributesOf<Plain>("@u:c=8 @d=9"));
    check(xmlElementPrependAttribute, xmlAttributesPrependAttribute, "@b=9 @a=1 @u:c=3",
          Plain::attribute("b", "9"));
    check(xmlElementPrependAttributeNameText, xmlAttributesPrependAttributeNameText,
          "@d=9 @a=1 @b=x&lt; @u:c=3", str("d"), textNode("9"));
    check(xmlElementPrependAttributeNameTextValue, xmlAttributesPrependAttributeNameTextValue,
          "@d=&gt; @a=1 @b=x&lt; @u:c=3", str("d"), str("&gt;"));
    check(xmlElementPrependAttributeNameTextEscape, xmlAttributesPrependAttributeNameTextEscape,
          "@d=&amp;gt; @a=1 @b=x&lt; @u:c=3", str("d"), str("&gt;"));
    check(xmlElementAppendAttributes, xmlAttributesAppend, "@a=1 @u:c=3 @b=8 @d=9",
          attributesOf<Plain>("@b=8 @d=9"));
    check(xmlElementAppendAttribute, xmlAttributesAppendAttribute, "@b=x&lt; @u:c=3 @a=9",
          Plain::attribute("a", "9"));
    check(xmlElementAppendAttributeNameText, xmlAttributesAppendAttributeNameText,
          "@a=1 @b=x&lt; @u:c=3 @d=9", str("d"), textNode("9"));
    check(xmlElementAppendAttributeNameTextValue, xmlAttributesAppendAttributeNameTextValue,
          "@a=1 @b=x&lt; @u:c=3 @d=&gt;", str("d"), str("&gt;"));
    check(xmlElementAppendAttributeNameTextEscape, xmlAttributesAppendAttributeNameTextEscape,
          "@a=1 @b=x&lt; @u:c=3 @d=&amp;gt;", str("d"), str("&gt;"));
}

TEST(PlainElement, ReadsItemsAsItsListDoes) {
    const auto check = itemOperations();
    check(xmlElementItemsLength, xmlItemsLength, "5");
    check(xmlElementItemAt, xmlItemsItemAt, "!c", 2);
    check(xmlElementItemTypeAt, xmlItemsItemTypeAt, "0", 0);
    check(xmlElementItemTypeAt, xmlItemsItemTypeAt, "4", 4);
    check(xmlElementItemElementAt, xmlItemsItemElementAt, "(u:e)", 0);
    check(xmlElementItemElementAt, xmlItemsItemElementAt, "<null>", 1);
    check(xmlElementItemProcessingInstructionAt, xmlItemsItemProcessingInstructionAt, "?p", 1);
    check(xmlElementItemCommentAt, xmlItemsItemCommentAt, "!c", 2);
    check(xmlElementItemTextAt, xmlItemsItemTextAt, "'&lt;'", 3);
    check(xmlElementItemTextValueAt, xmlItemsItemTextValueAt, "&lt;", 3);
    check(xmlElementItemTextValueAt, xmlItemsItemTextValueAt, "<null>", 4);
    check(xmlElementItemTextTryUnescapeAt, xmlItemsItemTextTryUnescapeAt, "<", 3);
    check(xmlElementItemCdataAt, xmlItemsItemCdataAt, "#d", 4);
}

TEST(PlainElement, ChangesItemsAsItsListDoes) {
    const auto check = itemOperations();
    Ref item(xmlItemCreateTextValue(str("9")));
    check(xmlElementItemsClear, xmlItemsClear, "");
    check(xmlElementSetItemAt, xmlItemsSetItemAt, "(u:e) '9' !c '&lt;' #d", 1, item);
    check(xmlElementSetItemElementAt, xmlItemsSetItemElementAt, "(u:e) (n) !c '&lt;' #d", 1,
          Plain::element("n"));
    check(xmlElementSetItemProcessingInstructionAt, xmlItemsSetItemProcessingInstructionAt,
          "?n ?p !c '&lt;' #d", 0, instruction("n"));
    check(xmlElementSetItemCommentAt, xmlItemsSetItemCommentAt, "(u:e) ?p !c '&lt;' !n", 4,
          comment("n"));
    check(xmlElementSetItemTextAt, xmlItemsSetItemTextAt, "(u:e) 'n' !c '&lt;' #d", 1,
          textNode("n"));
    check(xmlElementSetItemTextValueAt, xmlItemsSetItemTextValueAt, "(u:e) '&gt;' !c '&lt;' #d", 1,
          str("&gt;"));
    check(xmlElementSetItemTextEscapeAt, xmlItemsSetItemTextEscapeAt,
          "(u:e) '&amp;gt;' !c '&lt;' #d", 1, str("&gt;"));
    check(xmlElementSetItemCdatdaAt, xmlItemsSetItemCdataAt, "#n ?p !c '&lt;' #d", 0, cdata("n"));
    check(xmlElementDelItemAt, xmlItemsDelItemAt, "(u:e) !c '&lt;' #d", 1);
}

TEST(PlainElement, AddsItemsAsItsListDoes) {
    const auto check = itemOperations();
    Ref item(xmlItemCreateTextValue(str("9")));
    check(xmlElementInsertItems, xmlItemsInsert, "(u:e) ?p !c '&lt;' '8' !9 #d", 4,
          itemsOf<Plain>("'8' !9"));
    check(xmlElementInsertItem, xmlItemsInsertItem, "(u:e) '9' ?p !c '&lt;' #d", 1, item);
    check(xmlElementInsertItemElement, xmlItemsInsertItemElement, "(u:e) (n) ?p !c '&lt;' #d", 1,
          Plain::element("n"));
    check(xmlElementInsertItemProcessingInstruction, xmlItemsInsertItemProcessingInstruction,
          "(u:e) ?p !c '&lt;' #d ?n", 5, instruction("n"));
    check(xmlElementInsertItemComment, xmlItemsInsertItemComment, "(u:e) !n ?p !c '&lt;' #d", 1,
          comment("n"));
    check(xmlElementInsertItemText, xmlItemsInsertItemText, "(u:e) 'n' ?p !c '&lt;' #d", 1,
          textNode("n"));
    check(xmlElementInsertItemTextValue, xmlItemsInsertItemTextValue,
          "(u:e) '&gt;' ?p !c '&lt;' #d", 1, str("&gt;"));
    check(xmlElementInsertItemTextEscape, xmlItemsInsertItemTextEscape,
          "(u:e) '&amp;gt;' ?p !c '&lt;' #d", 1, str("&gt;"));
    check(xmlElementInsertItemCdata, xmlItemsInsertItemCdata, "(u:e) #n ?p !c '&lt;' #d", 1,
          cdata("n"));
    check(xmlElementPrependItems, xmlItemsPrepend, "'8' !9 (u:e) ?p !c '&lt;' #d",
          itemsOf<Plain>("'8' !9"));
    check(xmlElementPrependItem, xmlItemsPrependItem, "'9' (u:e) ?p !c '&lt;' #d", item);
    check(xmlElementPrependItemElement, xmlItemsPrependItemElement, "(n) (u:e) ?p !c '&lt;' #d",
          Plain::element("n"));
    check(xmlElementPrependItemProcessingInstruction, xmlItemsPrependItemProcessingInstruction,
          "?n (u:e) ?p !c '&lt;' #d", instruction("n"));
    check(xmlElementPrependItemComment, xmlItemsPrependItemComment, "!n (u:e) ?p !c '&lt;' #d",
          comment("n"));
    check(xmlElementPrependItemText, xmlItemsPrependItemText, "'n' (u:e) ?p !c '&lt;' #d",
          textNode("n"));
    check(xmlElementPrependItemTextValue, xmlItemsPrependItemTextValue,
          "'&gt;' (u:e) ?p !c '&lt;' #d", str("&gt;"));
    check(xmlElementPrependItemTextEscape, xmlItemsPrependItemTextEscape,
          "'&amp;gt;' (u:e) ?p !c '&lt;' #d", str("&gt;"));
    check(xmlElementPrependItemCdata, xmlItemsPrependItemCdata, "#n (u:e) ?p !c '&lt;' #d",
          cdata("n"));
    check(xmlElementAppendItems, xmlItemsAppend, "(u:e) ?p !c '&lt;' #d '8' !9",
          itemsOf<Plain>("'8' !9"));
    check(xmlElementAppendItem, xmlItemsAppendItem, "(u:e) ?p !c '&lt;' #d '9'", item);
    check(xmlElementAppendItemElement, xmlItemsAppendItemElement, "(u:e) ?p !c '&lt;' #d (n)",
          Plain::element("n"));
    check(xmlElementAppendItemProcessingInstruction, xmlItemsAppendItemProcessingInstruction,
          "(u:e) ?p !c '&lt;' #d ?n", instruction("n"));
    check(xmlElementAppendItemComment, xmlItemsAppendItemComment, "(u:e) ?p !c '&lt;' #d !n",
          comment("n"));
    check(xmlElementAppendItemText, xmlItemsAppendItemText, "(u:e) ?p !c '&lt;' #d 'n'",
          textNode("n"));
    check(xmlElementAppendItemTextValue, xmlItemsAppendItemTextValue,
          "(u:e) ?p !c '&lt;' #d '&gt;'", str("&gt;"));
    check(xmlElementAppendItemTextEscape, xmlItemsAppendItemTextEscape,
          "(u:e) ?p !c '&lt;' #d '&amp;gt;'", str("&gt;"));
    check(xmlElementAppendItemCdata, xmlItemsAppendItemCdata, "(u:e) ?p !c '&lt;' #d #n",
          cdata("n"));
}

LAYER_TEST_SUITE(Element);

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
        const bool first = describe(items.operator->()).starts_with("(e");
        Ref inner(TypeParam::elementItemAt(el, first ? 0 : 1));
        EXPECT_NE(inner, el);
        EXPECT_EQ(taken(TypeParam::elementItems(inner)), "!c");
    }
}

TEST(PlainElement, ChecksItsName) {
    const char *file = "source/xml/base/xml_element.cpp", *check = "xmlValueNameOk( name )";
    auto el = Plain::element("p:a");
    xmlElementSetName(el.edit(), str("b"));
    EXPECT_EQ(take(xmlElementName(el)), "b");
    EXPECT_ABORT((void)Ref(xmlElementCreate(str("a b"))), file, check);
    EXPECT_ABORT(xmlElementSetName(el.edit(), str("")), file, check);
}
