// The common operations of every type of the library.
#include "source/xml/base/xml_module.hpp"
#include "tests/support.hpp"
#include "xml/xml.h"

namespace {

template <class T> struct Type {
    voSort *(*sort)(void);
    T *(*retain)(T *);
    void (*release)(T *);
    voObj *(*obj)(T *);
    T *(*from)(voObj *);
    voString *(*toString)(T *);
    int64_t (*compare)(T *, T *);
    int (*equals)(T *, T *);
    const char *name;
};

/// The type T, whose functions are called xml`Name`....
#define TYPE(T, Name)                                                                              \
    Type<T> {                                                                                      \
        xml##Name##Sort, xml##Name##Retain, xml##Name##Release, xml##Name##Obj, xml##Name##From,   \
            xml##Name##ToString, xml##Name##Compare, xml##Name##Equals, #T                         \
    }

/// `made` and `other` are two objects of the type.
template <class T> void check(const Type<T> &type, Ref<T> made, Ref<T> other) {
    SCOPED_TRACE(type.name);
    voObj *obj = type.obj(made);
    EXPECT_EQ(type.sort(), voObjSort(obj));
    EXPECT_STREQ(type.sort()->name, type.name);
    EXPECT_EQ(type.sort()->module, &xml___module);
    EXPECT_EQ(test::take(type.toString(made)), type.name);

    EXPECT_EQ(type.from(obj), made);
    EXPECT_EQ(type.from(nullptr), nullptr);
    EXPECT_EQ(type.obj(nullptr), nullptr);

    EXPECT_EQ(type.retain(made), made);
    EXPECT_FALSE(vo::isSole<T>(made));
    type.release(made);
    EXPECT_TRUE(vo::isSole<T>(made));

    EXPECT_EQ(type.compare(made, made), 0);
    EXPECT_EQ(type.equals(made, made), 1);
    EXPECT_EQ(type.equals(made, other), 0);
    EXPECT_EQ(type.equals(nullptr, nullptr), 1);
    EXPECT_EQ(type.compare(made, other) < 0, type.compare(other, made) > 0);
}

/// The same for a type that can be copied; a copy outlives its source.
template <class T> void check(const Type<T> &type, T *source, T *(*createFrom)(T *)) {
    Ref copy(createFrom(Ref(source)));
    Ref other(createFrom(copy));
    check(type, std::move(copy), std::move(other));
}

#define CHECK(T, Name, ...) check(TYPE(T, Name), __VA_ARGS__, xml##Name##CreateFrom)

} // namespace

TEST(Object, OfThePlainTreeHasTheCommonOperations) {
    Ref<voString> name = test::str("name");
    CHECK(XML_TEXT, Text, xmlTextCreate());
    CHECK(XML_ATTRIBUTE, Attribute, xmlAttributeCreate(name));
    CHECK(XML_ATTRIBUTES, Attributes, xmlAttributesCreate());
    CHECK(XML_CDATA, Cdata, xmlCdataCreate(name));
    CHECK(XML_COMMENT, Comment, xmlCommentCreate(name));
    CHECK(XML_PROCESSING_INSTRUCTION, ProcessingInstruction, xmlProcessingInstructionCreate(name));
    CHECK(XML_ITEM, Item, xmlItemCreateText(Ref(xmlTextCreate())));
    CHECK(XML_ITEMS, Items, xmlItemsCreate());
    CHECK(XML_ELEMENT, Element, xmlElementCreate(name));
    CHECK(XML_DOCUMENT, Document, xmlDocumentCreate());
    CHECK(XML_OPTIONS, Options, xmlOptionsCreate());
    CHECK(XML_CURSOR, Cursor, xmlCursorCreate(Ref(xmlDocumentCreate())));
}

TEST(Object, OfTheNamespaceTreeHasTheCommonOperations) {
    Ref<voString> name = test::str("name");
    CHECK(XML_NS_ATTRIBUTE, NsAttribute, xmlNsAttributeCreate(name, nullptr));
    CHECK(XML_NS_ATTRIBUTES, NsAttributes, xmlNsAttributesCreate());
    CHECK(XML_NS_ITEM, NsItem, xmlNsItemCreateText(Ref(xmlTextCreate())));
    CHECK(XML_NS_ITEMS, NsItems, xmlNsItemsCreate());
    CHECK(XML_NS_ELEMENT, NsElement, xmlNsElementCreate(name, nullptr));
    CHECK(XML_NS_DOCUMENT, NsDocument, xmlNsDocumentCreate());
    CHECK(XML_NS_NAMESPACE_MAP, NsNamespaceMap, xmlNsNamespaceMapCreate());
    CHECK(XML_NS_NAMESPACE_MAPPING, NsNamespaceMapping, xmlNsNamespaceMappingCreate());
}

TEST(Object, OfADecoderHasTheCommonOperations) {
    auto error = [] { return Ref(xmlDecodeErrorCreate(0, nullptr)); };
    auto result = [&] { return Ref(xmlDecodeResultCreateError(error())); };
    auto nsError = [] { return Ref(xmlNsDecodeErrorCreate(0, nullptr)); };
    auto nsResult = [&] { return Ref(xmlNsDecodeResultCreateError(nsError())); };
    check(TYPE(XML_DECODE_ERROR, DecodeError), error(), error());
    check(TYPE(XML_DECODE_RESULT, DecodeResult), result(), result());
    check(TYPE(XML_NS_DECODE_ERROR, NsDecodeError), nsError(), nsError());
    check(TYPE(XML_NS_DECODE_RESULT, NsDecodeResult), nsResult(), nsResult());
}

TEST(Object, OfAnotherTypeIsNotTakenForOne) {
    Ref text(xmlTextCreate());
    EXPECT_DEATH(xmlAttributeFrom(xmlTextObj(text)),
                 "^stdfunc from: source/xml/base/xml_attribute.cpp:[0-9]+: "
                 "!obj \\|\\| voObjSort\\(obj\\)==&xml___sort_XML_ATTRIBUTE\n");
}
