#include "tests/xml/list_operations.hpp"

using namespace test;

namespace {

ListOperations<XML_NS_ELEMENT, XML_NS_ATTRIBUTES> attributeOperations() {
    return {attributesOf<Namespaced>("@a=1 @b=x&lt; @u:c=3"), xmlNsElementSetAttributes,
            xmlNsElementAttributes};
}

ListOperations<XML_NS_ELEMENT, XML_NS_ITEMS> itemOperations() {
    return {itemsOf<Namespaced>("(u:e) ?p !c '&lt;' #d"), xmlNsElementSetItems, xmlNsElementItems};
}

} // namespace

TEST(NamespacedElement, ReadsAttributesAsItsListDoes) {
    const auto check = attributeOperations();
    check(xmlNsElementAttributesLength, xmlNsAttributesLength, "3");
    check(xmlNsElementAttributeAt, xmlNsAttributesAttributeAt, "@u:c=3", 2);
    check(xmlNsElementAttributeTextAt, xmlNsAttributesAttributeTextAt, "'x&lt;'", 1);
    check(xmlNsElementAttributeTextValueAt, xmlNsAttributesAttributeTextValueAt, "x&lt;", 1);
    check(xmlNsElementAttributeTextTryUnescapeAt, xmlNsAttributesAttributeTextTryUnescapeAt, "x<",
          1);
    check(xmlNsElementAttribute, xmlNsAttributesAttribute, "@u:c=3", str("c"), str("u"));
    check(xmlNsElementAttribute, xmlNsAttributesAttribute, "<null>", str("c"), nullptr);
    check(xmlNsElementAttributeText, xmlNsAttributesAttributeText, "'x&lt;'", str("b"), nullptr);
    check(xmlNsElementAttributeTextValue, xmlNsAttributesAttributeTextValue, "x&lt;", str("b"),
          nullptr);
    check(xmlNsElementAttributeTextTryUnescape, xmlNsAttributesAttributeTextTryUnescape, "x<",
          str("b"), nullptr);
    check(xmlNsElementAttributeTextTryUnescape, xmlNsAttributesAttributeTextTryUnescape, "<null>",
          str("d"), nullptr);
    check(xmlNsElementHasAttribute, xmlNsAttributesHasAttribute, "1", str("c"), str("u"));
    check(xmlNsElementHasAttribute, xmlNsAttributesHasAttribute, "0", str("c"), str("v"));
    check(xmlNsElementAttributeLocalNameAt, xmlNsAttributesAttributeLocalNameAt, "c", 2);
    check(xmlNsElementAttributeNamespaceAt, xmlNsAttributesAttributeNamespaceAt, "u", 2);
    check(xmlNsElementAttributeNamespaceAt, xmlNsAttributesAttributeNamespaceAt, "<null>", 0);
    check(xmlNsElementAttributeHasNamespaceAt, xmlNsAttributesAttributeHasNamespaceAt, "1", 2);
    check(xmlNsElementAttributeHasNamespaceAt, xmlNsAttributesAttributeHasNamespaceAt, "0", 0);
}

TEST(NamespacedElement, ChangesAttributesAsItsListDoes) {
    const auto check = attributeOperations();
    check(xmlNsElementAttributesClear, xmlNsAttributesClear, "");
    check(xmlNsElementSetAttributeAt, xmlNsAttributesSetAttributeAt, "@a=9 @u:c=3", 1,
          Namespaced::attribute("a", "9"));
    check(xmlNsElementSetAttributeNameAt, xmlNsAttributesSetAttributeNameAt, "@u:c=1 @b=x&lt;", 0,
          str("c"), str("u"));
    check(xmlNsElementSetAttributeNameAt, xmlNsAttributesSetAttributeNameAt, "@a=1 @b=x&lt; @c=3",
          2, str("c"), nullptr);
    check(xmlNsElementSetAttributeTextAt, xmlNsAttributesSetAttributeTextAt, "@a=1 @b=9 @u:c=3", 1,
          textNode("9"));
    check(xmlNsElementSetAttributeTextValueAt, xmlNsAttributesSetAttributeTextValueAt,
          "@a=1 @b=&gt; @u:c=3", 1, str("&gt;"));
    check(xmlNsElementSetAttributeTextEscapeAt, xmlNsAttributesSetAttributeTextEscapeAt,
          "@a=1 @b=&amp;gt; @u:c=3", 1, str("&gt;"));
    check(xmlNsElementSetAttributeNameTextAt, xmlNsAttributesSetAttributeNameTextAt, "@a=1 @u:c=9",
          1, str("c"), str("u"), textNode("9"));
    check(xmlNsElementSetAttributeNameTextValueAt, xmlNsAttributesSetAttributeNameTextValueAt,
          "@d=&gt; @b=x&lt; @u:c=3", 0, str("d"), nullptr, str("&gt;"));
    check(xmlNsElementSetAttributeNameTextEscapeAt, xmlNsAttributesSetAttributeNameTextEscapeAt,
          "@d=&amp;gt; @b=x&lt; @u:c=3", 0, str("d"), nullptr, str("&gt;"));
    check(xmlNsElementDelAttributeAt, xmlNsAttributesDelAttributeAt, "@a=1 @u:c=3", 1);
    check(xmlNsElementSetAttribute, xmlNsAttributesSetAttribute, "@a=1 @b=9 @u:c=3",
          Namespaced::attribute("b", "9"));
    check(xmlNsElementSetAttribute, xmlNsAttributesSetAttribute, "@a=1 @b=x&lt; @u:c=3 @v:c=9",
          Namespaced::attribute("v:c", "9"));
    check(xmlNsElementSetAttributeNameText, xmlNsAttributesSetAttributeNameText,
          "@a=9 @b=x&lt; @u:c=3", str("a"), nullptr, textNode("9"));
    check(xmlNsElementSetAttributeNameTextValue, xmlNsAttributesSetAttributeNameTextValue,
          "@a=1 @b=x&lt; @u:c=&gt;", str("c"), str("u"), str("&gt;"));
    check(xmlNsElementSetAttributeNameTextEscape, xmlNsAttributesSetAttributeNameTextEscape,
          "@a=1 @b=x&lt; @u:c=3 @c=&amp;gt;", str("c"), nullptr, str("&gt;"));
    check(xmlNsElementDelAttribute, xmlNsAttributesDelAttribute, "@a=1 @u:c=3", str("b"), nullptr);
    check(xmlNsElementDelAttribute, xmlNsAttributesDelAttribute, "@a=1 @b=x&lt; @u:c=3", str("b"),
          str("u"));
}

TEST(NamespacedElement, AddsAttributesAsItsListDoes) {
    const auto check = attributeOperations();
    check(xmlNsElementInsertAttributes, xmlNsAttributesInsert, "@d=8 @a=9 @b=x&lt; @u:c=3", 1,
          attributesOf<Namespaced>("@d=8 @a=9"));
    check(xmlNsElementInsertAttribute, xmlNsAttributesInsertAttribute, "@a=1 @u:c=9 @b=x&lt;", 1,
          Namespaced::attribute("u:c", "9"));
    check(xmlNsElementInsertAttributeNameText, xmlNsAttributesInsertAttributeNameText,
          "@a=1 @c=9 @b=x&lt; @u:c=3", 1, str("c"), nullptr, textNode("9"));
    check(xmlNsElementInsertAttributeNameTextValue, xmlNsAttributesInsertAttributeNameTextValue,
          "@a=1 @d=&gt; @b=x&lt; @u:c=3", 1, str("d"), nullptr, str("&gt;"));
    check(xmlNsElementInsertAttributeNameTextEscape, xmlNsAttributesInsertAttributeNameTextEscape,
          "@a=1 @d=&amp;gt; @b=x&lt; @u:c=3", 1, str("d"), nullptr, str("&gt;"));
    check(xmlNsElementPrependAttributes, xmlNsAttributesPrepend, "@u:c=8 @d=9 @a=1 @b=x&lt;",
          attributesOf<Namespaced>("@u:c=8 @d=9"));
    check(xmlNsElementPrependAttribute, xmlNsAttributesPrependAttribute, "@b=9 @a=1 @u:c=3",
          Namespaced::attribute("b", "9"));
    check(xmlNsElementPrependAttributeNameText, xmlNsAttributesPrependAttributeNameText,
          "@d=9 @a=1 @b=x&lt; @u:c=3", str("d"), nullptr, textNode("9"));
    check(xmlNsElementPrependAttributeNameTextValue, xmlNsAttributesPrependAttributeNameTextValue,
          "@d=&gt; @a=1 @b=x&lt; @u:c=3", str("d"), nullptr, str("&gt;"));
    check(xmlNsElementPrependAttributeNameTextEscape, xmlNsAttributesPrependAttributeNameTextEscape,
          "@d=&amp;gt; @a=1 @b=x&lt; @u:c=3", str("d"), nullptr, str("&gt;"));
    check(xmlNsElementAppendAttributes, xmlNsAttributesAppend, "@a=1 @u:c=3 @b=8 @d=9",
          attributesOf<Namespaced>("@b=8 @d=9"));
    check(xmlNsElementAppendAttribute, xmlNsAttributesAppendAttribute, "@b=x&lt; @u:c=3 @a=9",
          Namespaced::attribute("a", "9"));
    check(xmlNsElementAppendAttributeNameText, xmlNsAttributesAppendAttributeNameText,
          "@a=1 @b=x&lt; @u:c=3 @d=9", str("d"), nullptr, textNode("9"));
    check(xmlNsElementAppendAttributeNameTextValue, xmlNsAttributesAppendAttributeNameTextValue,
          "@a=1 @b=x&lt; @u:c=3 @d=&gt;", str("d"), nullptr, str("&gt;"));
    check(xmlNsElementAppendAttributeNameTextEscape, xmlNsAttributesAppendAttributeNameTextEscape,
          "@a=1 @b=x&lt; @u:c=3 @d=&amp;gt;", str("d"), nullptr, str("&gt;"));
}

TEST(NamespacedElement, ReadsItemsAsItsListDoes) {
    const auto check = itemOperations();
    check(xmlNsElementItemsLength, xmlNsItemsLength, "5");
    check(xmlNsElementItemAt, xmlNsItemsItemAt, "!c", 2);
    check(xmlNsElementItemTypeAt, xmlNsItemsItemTypeAt, "0", 0);
    check(xmlNsElementItemTypeAt, xmlNsItemsItemTypeAt, "4", 4);
    check(xmlNsElementItemElementAt, xmlNsItemsItemElementAt, "(u:e)", 0);
    check(xmlNsElementItemElementAt, xmlNsItemsItemElementAt, "<null>", 1);
    check(xmlNsElementItemProcessingInstructionAt, xmlNsItemsItemProcessingInstructionAt, "?p", 1);
    check(xmlNsElementItemCommentAt, xmlNsItemsItemCommentAt, "!c", 2);
    check(xmlNsElementItemTextAt, xmlNsItemsItemTextAt, "'&lt;'", 3);
    check(xmlNsElementItemTextValueAt, xmlNsItemsItemTextValueAt, "&lt;", 3);
    check(xmlNsElementItemTextValueAt, xmlNsItemsItemTextValueAt, "<null>", 4);
    check(xmlNsElementItemTextTryUnescapeAt, xmlNsItemsItemTextTryUnescapeAt, "<", 3);
    check(xmlNsElementItemCdataAt, xmlNsItemsItemCdataAt, "#d", 4);
}

TEST(NamespacedElement, ChangesItemsAsItsListDoes) {
    const auto check = itemOperations();
    Ref item(xmlNsItemCreateTextValue(str("9")));
    check(xmlNsElementItemsClear, xmlNsItemsClear, "");
    check(xmlNsElementSetItemAt, xmlNsItemsSetItemAt, "(u:e) '9' !c '&lt;' #d", 1, item);
    check(xmlNsElementSetItemElementAt, xmlNsItemsSetItemElementAt, "(u:e) (n) !c '&lt;' #d", 1,
          Namespaced::element("n"));
    check(xmlNsElementSetItemProcessingInstructionAt, xmlNsItemsSetItemProcessingInstructionAt,
          "?n ?p !c '&lt;' #d", 0, instruction("n"));
    check(xmlNsElementSetItemCommentAt, xmlNsItemsSetItemCommentAt, "(u:e) ?p !c '&lt;' !n", 4,
          comment("n"));
    check(xmlNsElementSetItemTextAt, xmlNsItemsSetItemTextAt, "(u:e) 'n' !c '&lt;' #d", 1,
          textNode("n"));
    check(xmlNsElementSetItemTextValueAt, xmlNsItemsSetItemTextValueAt, "(u:e) '&gt;' !c '&lt;' #d",
          1, str("&gt;"));
    check(xmlNsElementSetItemTextEscapeAt, xmlNsItemsSetItemTextEscapeAt,
          "(u:e) '&amp;gt;' !c '&lt;' #d", 1, str("&gt;"));
    check(xmlNsElementSetItemCdatdaAt, xmlNsItemsSetItemCdataAt, "#n ?p !c '&lt;' #d", 0,
          cdata("n"));
    check(xmlNsElementDelItemAt, xmlNsItemsDelItemAt, "(u:e) !c '&lt;' #d", 1);
}

TEST(NamespacedElement, AddsItemsAsItsListDoes) {
    const auto check = itemOperations();
    Ref item(xmlNsItemCreateTextValue(str("9")));
    check(xmlNsElementInsertItems, xmlNsItemsInsert, "(u:e) ?p !c '&lt;' '8' !9 #d", 4,
          itemsOf<Namespaced>("'8' !9"));
    check(xmlNsElementInsertItem, xmlNsItemsInsertItem, "(u:e) '9' ?p !c '&lt;' #d", 1, item);
    check(xmlNsElementInsertItemElement, xmlNsItemsInsertItemElement, "(u:e) (n) ?p !c '&lt;' #d",
          1, Namespaced::element("n"));
    check(xmlNsElementInsertItemProcessingInstruction, xmlNsItemsInsertItemProcessingInstruction,
          "(u:e) ?p !c '&lt;' #d ?n", 5, instruction("n"));
    check(xmlNsElementInsertItemComment, xmlNsItemsInsertItemComment, "(u:e) !n ?p !c '&lt;' #d", 1,
          comment("n"));
    check(xmlNsElementInsertItemText, xmlNsItemsInsertItemText, "(u:e) 'n' ?p !c '&lt;' #d", 1,
          textNode("n"));
    check(xmlNsElementInsertItemTextValue, xmlNsItemsInsertItemTextValue,
          "(u:e) '&gt;' ?p !c '&lt;' #d", 1, str("&gt;"));
    check(xmlNsElementInsertItemTextEscape, xmlNsItemsInsertItemTextEscape,
          "(u:e) '&amp;gt;' ?p !c '&lt;' #d", 1, str("&gt;"));
    check(xmlNsElementInsertItemCdata, xmlNsItemsInsertItemCdata, "(u:e) #n ?p !c '&lt;' #d", 1,
          cdata("n"));
    check(xmlNsElementPrependItems, xmlNsItemsPrepend, "'8' !9 (u:e) ?p !c '&lt;' #d",
          itemsOf<Namespaced>("'8' !9"));
    check(xmlNsElementPrependItem, xmlNsItemsPrependItem, "'9' (u:e) ?p !c '&lt;' #d", item);
    check(xmlNsElementPrependItemElement, xmlNsItemsPrependItemElement, "(n) (u:e) ?p !c '&lt;' #d",
          Namespaced::element("n"));
    check(xmlNsElementPrependItemProcessingInstruction, xmlNsItemsPrependItemProcessingInstruction,
          "?n (u:e) ?p !c '&lt;' #d", instruction("n"));
    check(xmlNsElementPrependItemComment, xmlNsItemsPrependItemComment, "!n (u:e) ?p !c '&lt;' #d",
          comment("n"));
    check(xmlNsElementPrependItemText, xmlNsItemsPrependItemText, "'n' (u:e) ?p !c '&lt;' #d",
          textNode("n"));
    check(xmlNsElementPrependItemTextValue, xmlNsItemsPrependItemTextValue,
          "'&gt;' (u:e) ?p !c '&lt;' #d", str("&gt;"));
    check(xmlNsElementPrependItemTextEscape, xmlNsItemsPrependItemTextEscape,
          "'&amp;gt;' (u:e) ?p !c '&lt;' #d", str("&gt;"));
    check(xmlNsElementPrependItemCdata, xmlNsItemsPrependItemCdata, "#n (u:e) ?p !c '&lt;' #d",
          cdata("n"));
    check(xmlNsElementAppendItems, xmlNsItemsAppend, "(u:e) ?p !c '&lt;' #d '8' !9",
          itemsOf<Namespaced>("'8' !9"));
    check(xmlNsElementAppendItem, xmlNsItemsAppendItem, "(u:e) ?p !c '&lt;' #d '9'", item);
    check(xmlNsElementAppendItemElement, xmlNsItemsAppendItemElement, "(u:e) ?p !c '&lt;' #d (n)",
          Namespaced::element("n"));
    check(xmlNsElementAppendItemProcessingInstruction, xmlNsItemsAppendItemProcessingInstruction,
          "(u:e) ?p !c '&lt;' #d ?n", instruction("n"));
    check(xmlNsElementAppendItemComment, xmlNsItemsAppendItemComment, "(u:e) ?p !c '&lt;' #d !n",
          comment("n"));
    check(xmlNsElementAppendItemText, xmlNsItemsAppendItemText, "(u:e) ?p !c '&lt;' #d 'n'",
          textNode("n"));
    check(xmlNsElementAppendItemTextValue, xmlNsItemsAppendItemTextValue,
          "(u:e) ?p !c '&lt;' #d '&gt;'", str("&gt;"));
    check(xmlNsElementAppendItemTextEscape, xmlNsItemsAppendItemTextEscape,
          "(u:e) ?p !c '&lt;' #d '&amp;gt;'", str("&gt;"));
    check(xmlNsElementAppendItemCdata, xmlNsItemsAppendItemCdata, "(u:e) ?p !c '&lt;' #d #n",
          cdata("n"));
}

TEST(NamespacedElement, HasAnOptionalNamespaceMap) {
    auto el = Namespaced::element("a");
    EXPECT_FALSE(Ref(xmlNsElementNamespaceMap(el)));
    Ref map(xmlNsNamespaceMapCreate());
    Ref copy(xmlNsElementCreateFrom(el));
    xmlNsElementSetNamespaceMap(copy.edit(), map);
    EXPECT_EQ(Ref(xmlNsElementNamespaceMap(copy)), map);
    EXPECT_EQ(xmlNsElementHasNamespaceMap(copy), 1);
    EXPECT_EQ(xmlNsElementHasNamespaceMap(el), 0);
    xmlNsElementDelNamespaceMap(copy.edit());
    EXPECT_EQ(xmlNsElementHasNamespaceMap(copy), 0);
}
