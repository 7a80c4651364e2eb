// The operations that every type has, and those of every node's location.
#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_cdata.hpp"
#include "source/xml/base/xml_comment.hpp"
#include "source/xml/base/xml_document.hpp"
#include "source/xml/base/xml_element.hpp"
#include "source/xml/base/xml_item.hpp"
#include "source/xml/base/xml_items.hpp"
#include "source/xml/base/xml_processing_instruction.hpp"
#include "source/xml/base/xml_text.hpp"
#include "source/xml/ns/xml_ns_attribute.hpp"
#include "source/xml/ns/xml_ns_attributes.hpp"
#include "source/xml/ns/xml_ns_document.hpp"
#include "source/xml/ns/xml_ns_element.hpp"
#include "source/xml/ns/xml_ns_item.hpp"
#include "source/xml/ns/xml_ns_items.hpp"
#include "tests/support.hpp"
#include "xml/xml.h"

using namespace test;

extern "C" void xml___AttributeFreeFunc(voObj *obj);

namespace {

template <class T> struct Type {
    const char *sortName;
    T *(*make)();
    voSort *(*sort)();
    T *(*retain)(T *);
    void (*release)(T *);
    voObj *(*obj)(T *);
    T *(*from)(voObj *);
    voString *(*toString)(T *);
    int64_t (*compare)(T *, T *);
    int (*equals)(T *, T *);
};

#define TYPE(Name, T, ...)                                                                         \
    Type<T> {                                                                                      \
#T, [] { return __VA_ARGS__; }, xml##Name##Sort, xml##Name##Retain, xml##Name##Release,    \
                                     xml##Name##Obj, xml##Name##From, xml##Name##ToString,         \
                                     xml##Name##Compare, xml##Name##Equals                         \
    }

template <class T> void checkCommonOperations(const Type<T> &type) {
    SCOPED_TRACE(type.sortName);
    Ref a(type.make()), b(type.make());
    voObj *obj = type.obj(a);
    EXPECT_EQ(voObjSort(obj), type.sort());
    EXPECT_STREQ(type.sort()->name, type.sortName);
    EXPECT_EQ(take(type.toString(a)), type.sortName);
    EXPECT_EQ(type.from(obj), a);
    EXPECT_EQ(type.from(nullptr), nullptr);
    EXPECT_EQ(type.obj(nullptr), nullptr);
    EXPECT_DEATH((void)type.from(voStringObj(str("another type"))), type.sortName);

    EXPECT_EQ(type.retain(a), a);
    EXPECT_EQ(obj->refs, 2);
    type.release(a);
    EXPECT_EQ(obj->refs, 1);

    EXPECT_EQ(type.equals(a, a), 1);
    EXPECT_EQ(type.equals(a, b), 0);
    EXPECT_EQ(type.equals(a, nullptr), 0);
    EXPECT_EQ(type.compare(a, a), 0);
    EXPECT_EQ(type.compare(a, b), -type.compare(b, a));
}

template <class T> void checkCopy(T *(*copyOf)(T *), T *made) {
    Ref source(made), copy(copyOf(source));
    EXPECT_NE(copy, source);
    EXPECT_EQ(voObjSort(vo::obj(copy.operator->())), voObjSort(vo::obj(made)));
    EXPECT_EQ(copy->fields(), source->fields());
    EXPECT_EQ(vo::obj(copy.operator->())->refs, 1);
}

template <class T>
void checkLocation(T *made, voParserLocation *(*location)(T *), int (*hasLocation)(T *),
                   void (*setLocation)(T **, voParserLocation *), void (*delLocation)(T **)) {
    Ref node(made), other(vo::retained(made));
    Ref place(voParserLocationCreate(nullptr, 0, 1, 1));
    delLocation(node.edit());
    setLocation(node.edit(), place);
    EXPECT_EQ(Ref(location(node)), place);
    EXPECT_EQ(hasLocation(node), 1);
    EXPECT_EQ(hasLocation(other), 0);
    T *sole = node;
    delLocation(node.edit());
    EXPECT_EQ(node, sole);
    EXPECT_FALSE(Ref(location(node)));
}

#define CHECK_NODE(Name, ...)                                                                      \
    {                                                                                              \
        SCOPED_TRACE(#Name);                                                                       \
        checkCopy(xml##Name##CreateFrom, __VA_ARGS__);                                             \
        checkLocation(__VA_ARGS__, xml##Name##Location, xml##Name##HasLocation,                    \
                      xml##Name##SetLocation, xml##Name##DelLocation);                             \
    }

XML_ITEM *makeItem() { return xmlItemCreateTextValue(str("a")); }
XML_NS_ITEM *makeNsItem() { return xmlNsItemCreateTextValue(str("a")); }

} // namespace

TEST(CommonOperations, EveryTypeHasThem) {
    checkCommonOperations(TYPE(Attribute, XML_ATTRIBUTE, xmlAttributeCreate(str("a"))));
    checkCommonOperations(TYPE(Attributes, XML_ATTRIBUTES, xmlAttributesCreate()));
    checkCommonOperations(TYPE(Cdata, XML_CDATA, xmlCdataCreate(str("a"))));
    checkCommonOperations(TYPE(Comment, XML_COMMENT, xmlCommentCreate(str("a"))));
    checkCommonOperations(TYPE(Cursor, XML_CURSOR, xmlCursorCreate(Ref(xmlDocumentCreate()))));
    checkCommonOperations(TYPE(DecodeError, XML_DECODE_ERROR, xmlDecodeErrorCreate(0, nullptr)));
    checkCommonOperations(
        TYPE(DecodeResult, XML_DECODE_RESULT, xmlDecodeResultCreate(Ref(xmlDocumentCreate()))));
    checkCommonOperations(TYPE(Document, XML_DOCUMENT, xmlDocumentCreate()));
    checkCommonOperations(TYPE(Element, XML_ELEMENT, xmlElementCreate(str("a"))));
    checkCommonOperations(TYPE(Item, XML_ITEM, makeItem()));
    checkCommonOperations(TYPE(Items, XML_ITEMS, xmlItemsCreate()));
    checkCommonOperations(TYPE(Options, XML_OPTIONS, xmlOptionsCreate()));
    checkCommonOperations(TYPE(ProcessingInstruction, XML_PROCESSING_INSTRUCTION,
                               xmlProcessingInstructionCreate(str("a"))));
    checkCommonOperations(TYPE(Text, XML_TEXT, xmlTextCreate()));
    checkCommonOperations(
        TYPE(NsAttribute, XML_NS_ATTRIBUTE, xmlNsAttributeCreate(str("a"), nullptr)));
    checkCommonOperations(TYPE(NsAttributes, XML_NS_ATTRIBUTES, xmlNsAttributesCreate()));
    checkCommonOperations(
        TYPE(NsDecodeError, XML_NS_DECODE_ERROR, xmlNsDecodeErrorCreate(0, nullptr)));
    checkCommonOperations(TYPE(NsDecodeResult, XML_NS_DECODE_RESULT,
                               xmlNsDecodeResultCreate(Ref(xmlNsDocumentCreate()))));
    checkCommonOperations(TYPE(NsDocument, XML_NS_DOCUMENT, xmlNsDocumentCreate()));
    checkCommonOperations(TYPE(NsElement, XML_NS_ELEMENT, xmlNsElementCreate(str("a"), nullptr)));
    checkCommonOperations(TYPE(NsItem, XML_NS_ITEM, makeNsItem()));
    checkCommonOperations(TYPE(NsItems, XML_NS_ITEMS, xmlNsItemsCreate()));
    checkCommonOperations(TYPE(NsNamespaceMap, XML_NS_NAMESPACE_MAP, xmlNsNamespaceMapCreate()));
    checkCommonOperations(
        TYPE(NsNamespaceMapping, XML_NS_NAMESPACE_MAPPING, xmlNsNamespaceMappingCreate()));
}

TEST(CommonOperations, CopiesShareEveryFieldAndNodesHaveALocation) {
    CHECK_NODE(Attribute, xmlAttributeCreate(str("a")));
    CHECK_NODE(Cdata, xmlCdataCreate(str("a")));
    CHECK_NODE(Comment, xmlCommentCreate(str("a")));
    CHECK_NODE(Document, xmlDocumentCreate());
    CHECK_NODE(Element, xmlElementCreate(str("a")));
    CHECK_NODE(ProcessingInstruction, xmlProcessingInstructionCreate(str("a")));
    CHECK_NODE(Text, xmlTextCreate());
    CHECK_NODE(NsAttribute, xmlNsAttributeCreate(str("a"), str("u")));
    CHECK_NODE(NsDocument, xmlNsDocumentCreate());
    CHECK_NODE(NsElement, xmlNsElementCreate(str("a"), str("u")));
    checkCopy(xmlAttributesCreateFrom, xmlAttributesCreate());
    checkCopy(xmlItemCreateFrom, makeItem());
    checkCopy(xmlItemsCreateFrom, xmlItemsCreate());
    checkCopy(xmlNsAttributesCreateFrom, xmlNsAttributesCreate());
    checkCopy(xmlNsItemCreateFrom, makeNsItem());
    checkCopy(xmlNsItemsCreateFrom, xmlNsItemsCreate());
}

TEST(CommonOperations, MisuseAborts) {
    const char *file = "source/xml/base/xml_attribute.cpp";
    Ref attr(xmlAttributeCreate(str("a")));
    struct {
        void (*call)(XML_ATTRIBUTE *);
        const char *context, *text;
    } rows[] = {
        {[](auto *) { xmlAttributeRetain(nullptr); }, "stdfunc retain: ", "obj"},
        {[](auto *) { xmlAttributeRelease(nullptr); }, "stdfunc release: ", "obj"},
        {[](auto *) { (void)Ref(xmlAttributeToString(nullptr)); }, "stdfunc tostring: ", "obj"},
        {[](auto *a) { xmlAttributeCompare(nullptr, a); }, "stdfunc compare a: ", "objA"},
        {[](auto *a) { xmlAttributeCompare(a, nullptr); }, "stdfunc compare b: ", "objB"},
        {[](auto *) { xmlAttributeFrom(voStringObj(str(""))); },
         "stdfunc from: ", "!obj || voObjSort(obj)==&xml___sort_XML_ATTRIBUTE"},
        {[](auto *) { (void)Ref(xmlAttributeCreateFrom(nullptr)); }, "", "source"},
        {[](auto *) { xml___AttributeFreeFunc(nullptr); }, "", "attr"},
    };
    for (auto &row : rows)
        EXPECT_DEATH(row.call(attr), testing::ContainsRegex(std::string("^") + row.context +
                                                            abortPattern(file, row.text)));
}
