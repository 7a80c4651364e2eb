// What only the namespace layer has: names of two parts, and declarations on elements.
#include "tests/xml/notation.hpp"

using namespace test;

static const char *const localNameCheck = "xmlNsValueLocalNameOk( localName )";
static const char *const namespaceCheck = "xmlNsValueNamespaceOk( ns )";
static const char *const optionalCheck = "!optionalNs || xmlNsValueNamespaceOk( optionalNs )";

namespace {

struct Attribute {
    static auto create(const char *name) { return Namespaced::attribute(name, ""); }
    static constexpr auto make = xmlNsAttributeCreate;
    static constexpr auto copy = xmlNsAttributeCreateFrom;
    static constexpr auto setName = xmlNsAttributeSetName;
    static constexpr auto localName = xmlNsAttributeLocalName;
    static constexpr auto setLocalName = xmlNsAttributeSetLocalName;
    static constexpr auto ns = xmlNsAttributeNamespace;
    static constexpr auto hasNamespace = xmlNsAttributeHasNamespace;
    static constexpr auto setNamespace = xmlNsAttributeSetNamespace;
    static constexpr auto delNamespace = xmlNsAttributeDelNamespace;
    static constexpr const char *file = "source/xml/ns/xml_ns_attribute.cpp";
    static constexpr const char *const &nameSetterCheck = namespaceCheck;
};

struct Element {
    static auto create(const char *name) { return Namespaced::element(name); }
    static constexpr auto make = xmlNsElementCreate;
    static constexpr auto copy = xmlNsElementCreateFrom;
    static constexpr auto setName = xmlNsElementSetName;
    static constexpr auto localName = xmlNsElementLocalName;
    static constexpr auto setLocalName = xmlNsElementSetLocalName;
    static constexpr auto ns = xmlNsElementNamespace;
    static constexpr auto hasNamespace = xmlNsElementHasNamespace;
    static constexpr auto setNamespace = xmlNsElementSetNamespace;
    static constexpr auto delNamespace = xmlNsElementDelNamespace;
    static constexpr const char *file = "source/xml/ns/xml_ns_element.cpp";
    static constexpr const char *const &nameSetterCheck = optionalCheck;
};

} // namespace

template <class Type> class NamespacedName : public testing::Test {};
using Types = testing::Types<Attribute, Element>;
TYPED_TEST_SUITE(NamespacedName, Types);

TYPED_TEST(NamespacedName, HasAnOptionalNamespace) {
    auto object = TypeParam::create("u:a");
    auto name = [&] { return expandedName(TypeParam::ns(object), TypeParam::localName(object)); };
    Ref copy(TypeParam::copy(object));
    TypeParam::setLocalName(object.edit(), str("b"));
    EXPECT_EQ(name(), "u:b");
    TypeParam::setName(object.edit(), str("c"), nullptr);
    EXPECT_EQ(name(), "c");
    EXPECT_EQ(TypeParam::hasNamespace(object), 0);
    TypeParam::setNamespace(object.edit(), str("not a uri"));
    EXPECT_EQ(name(), "not a uri:c");
    TypeParam::setName(object.edit(), str("d"), str("v"));
    EXPECT_EQ(name(), "v:d");
    TypeParam::delNamespace(object.edit());
    EXPECT_EQ(name(), "d");
    EXPECT_EQ(TypeParam::hasNamespace(copy), 1);
    EXPECT_EQ(take(TypeParam::ns(copy)), "u");
}

TYPED_TEST(NamespacedName, IsChecked) {
    auto object = TypeParam::create("a");
    Ref xmlns(xml___NsBuiltinNamespacesXmlnsNamespace());
    EXPECT_ABORT((void)Ref(TypeParam::make(str("a:b"), nullptr)), TypeParam::file, localNameCheck);
    EXPECT_ABORT((void)Ref(TypeParam::make(str("a"), xmlns)), TypeParam::file, optionalCheck);
    EXPECT_ABORT(TypeParam::setLocalName(object.edit(), str("1")), TypeParam::file, localNameCheck);
    EXPECT_ABORT(TypeParam::setNamespace(object.edit(), str("")), TypeParam::file, namespaceCheck);
    EXPECT_ABORT(TypeParam::setName(object.edit(), str("a"), str("")), TypeParam::file,
                 TypeParam::nameSetterCheck);
}

TEST(NamespacedAttribute, IsMadeWithAText) {
    EXPECT_EQ(taken(xmlNsAttributeCreateText(str("a"), nullptr, textNode("1"))), "@a=1");
    EXPECT_EQ(taken(xmlNsAttributeCreateTextEscape(str("a"), str("u"), str("<"))), "@u:a=&lt;");
}

TEST(NamespacedAttributes, CheckNames) {
    const char *file = "source/xml/ns/xml_ns_attributes.cpp";
    auto list = attributesOf<Namespaced>("@a=1");
    EXPECT_ABORT((void)xmlNsAttributesHasAttribute(list, str(":"), nullptr), file, localNameCheck);
    EXPECT_ABORT(xmlNsAttributesDelAttribute(list.edit(), str("a"), str("")), file, optionalCheck);
}
