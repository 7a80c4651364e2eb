#include "tests/xml/notation.hpp"

using namespace test;

namespace {

TEST(NsNamespaceMapping, ANewOneIsAnEmptyDefaultBinding) {
    Ref made(xmlNsNamespaceMappingCreate());
    EXPECT_TRUE(xmlNsNamespaceMappingIsDefault(made));
    EXPECT_FALSE(xmlNsNamespaceMappingHasPrefix(made));
    EXPECT_FALSE(xmlNsNamespaceMappingHasNamespace(made));
    EXPECT_EQ(describe(made), "=");
}

TEST(NsNamespaceMapping, BothPartsCanBeSetAndRemoved) {
    Ref changed = mapping("xmlns=urn:x");
    EXPECT_FALSE(xmlNsNamespaceMappingIsDefault(changed));
    EXPECT_EQ(describe(changed), "xmlns=urn:x");
    xmlNsNamespaceMappingDelPrefix(changed.edit());
    EXPECT_EQ(describe(changed), "=urn:x");
    xmlNsNamespaceMappingDelNamespace(changed.edit());
    xmlNsNamespaceMappingSetPrefix(changed.edit(), str("xml"));
    EXPECT_EQ(describe(changed), "xml=");
}

TEST(NsNamespaceMapping, ASharedOneIsCopiedBeforeAChange) {
    Ref original = mapping("p=urn:x");
    Ref changed(xmlNsNamespaceMappingRetain(original));
    Ref copy(xmlNsNamespaceMappingCreateFrom(original));
    xmlNsNamespaceMappingSetPrefix(changed.edit(), str("q"));
    xmlNsNamespaceMappingDelNamespace(changed.edit());
    EXPECT_EQ(describe(original), "p=urn:x");
    EXPECT_EQ(describe(copy), "p=urn:x");
    EXPECT_NE(copy, original);
    EXPECT_EQ(describe(changed), "q=");
}

TEST(NsNamespaceMapping, ARecordHoldsThePartsThereAre) {
    for (auto text : {"p=urn:x", "p=", "=urn:x", "="}) {
        Ref record(xmlNsNamespaceMappingStore(mapping(text)));
        const std::string_view view = text;
        EXPECT_EQ(voStoreLength(record), (view.front() != '=') + (view.back() != '=')) << text;
        EXPECT_EQ(taken(xmlNsNamespaceMappingRestore(record)), text);
    }
}

TEST(NsNamespaceMapping, RestoringDropsValuesThatAreNotValid) {
    struct {
        const char *prefix;
        const char *ns;
        const char *expected;
    } const rows[] = {
        {"a:b", "urn:x", "=urn:x"},
        {"", "urn:x", "=urn:x"},
        {"p", "", "p="},
        {"p", "http://www.w3.org/2000/xmlns/", "p="},
        {"xml", "x", "xml=x"},
    };
    for (auto &row : rows) {
        Ref record(voStoreCreate());
        voStoreSetValueCstr(record.edit(), "prefix", -1, str(row.prefix));
        voStoreSetValueCstr(record.edit(), "namespace", -1, str(row.ns));
        EXPECT_EQ(taken(xmlNsNamespaceMappingRestore(record)), row.expected);
    }
}

TEST(NsNamespaceMappingDeathTest, BrokenPreconditionsAbort) {
    const char *file = "source/xml/ns/xml_ns_namespace_mapping.cpp";
    Ref made = mapping("p=urn:x");
    EXPECT_ABORT(xmlNsNamespaceMappingSetPrefix(made.edit(), str("a:b")), file,
                 "xmlNsValuePrefixOk( prefix )");
    EXPECT_ABORT(xmlNsNamespaceMappingSetNamespace(made.edit(), str("")), file,
                 "xmlNsValueNamespaceOk( ns )");
}

} // namespace
