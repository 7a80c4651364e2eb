#include "source/xml/ns/xml_ns_skip.hpp"
#include "tests/support.hpp"
#include "xml/xml.h"

using test::str;

namespace {

TEST(NsValue, PrefixesAndLocalNamesAreNamesWithoutColon) {
    for (auto name : {"a", "_a.b-c", "xml", "xmlns", "\xC3\xA9", "a\xC2\xB7", "\xF0\x90\x80\x80"}) {
        EXPECT_TRUE(xmlNsValuePrefixOk(str(name))) << name;
        EXPECT_TRUE(xmlNsValueLocalNameOk(str(name))) << name;
    }
    for (auto name : {"", ":", "a:b", ":a", "a:", "1a", "-", "a b", "\xC2\xB7", "\xC3\x97"}) {
        EXPECT_FALSE(xmlNsValuePrefixOk(str(name))) << name;
        EXPECT_FALSE(xmlNsValueLocalNameOk(str(name))) << name;
    }
}

TEST(NsValue, EveryTextButTheEmptyAndTheXmlnsNameIsANamespace) {
    for (auto name : {"urn:x", "not a uri", " ", "http://www.w3.org/2000/xmlns",
                      "http://www.w3.org/XML/1998/namespace", "HTTP://www.w3.org/2000/xmlns/"})
        EXPECT_TRUE(xmlNsValueNamespaceOk(str(name))) << name;
    EXPECT_FALSE(xmlNsValueNamespaceOk(str("")));
    EXPECT_FALSE(xmlNsValueNamespaceOk(str("http://www.w3.org/2000/xmlns/")));
}

TEST(NsValue, TheScannerStopsBeforeAColonAndBeforeTheEnd) {
    const uint32_t chars[] = {'a', 'b', ':', 'c', ' '};
    EXPECT_EQ(xml___NsSkipNcname(chars, 5), 2);
    EXPECT_EQ(xml___NsSkipNcname(chars, 1), 1);
    EXPECT_EQ(xml___NsSkipNcname(chars + 2, 3), 0);
    EXPECT_EQ(xml___NsSkipNcname(chars + 3, 2), 1);
    EXPECT_EQ(xml___NsSkipNcname(nullptr, 0), 0);
}

TEST(NsValue, TheReservedNamesAreComparedCharacterByCharacter) {
    struct {
        voString *(*get)();
        int (*is)(voString *);
        const char *text;
    } const rows[] = {
        {xml___NsBuiltinNamespacesXmlPrefix, xml___NsBuiltinNamespacesIsXmlPrefix, "xml"},
        {xml___NsBuiltinNamespacesXmlNamespace, xml___NsBuiltinNamespacesIsXmlNamespace,
         "http://www.w3.org/XML/1998/namespace"},
        {xml___NsBuiltinNamespacesXmlnsPrefix, xml___NsBuiltinNamespacesIsXmlnsPrefix, "xmlns"},
        {xml___NsBuiltinNamespacesXmlnsNamespace, xml___NsBuiltinNamespacesIsXmlnsNamespace,
         "http://www.w3.org/2000/xmlns/"},
    };
    for (auto &asked : rows) {
        EXPECT_EQ(test::take(asked.get()), asked.text);
        for (auto &other : rows)
            EXPECT_EQ(asked.is(str(other.text)), &asked == &other) << asked.text << other.text;
    }
    EXPECT_FALSE(xml___NsBuiltinNamespacesIsXmlPrefix(str("XML")));
    EXPECT_FALSE(
        xml___NsBuiltinNamespacesIsXmlNamespace(str("http://www.w3.org/XML/1998/namespac")));
}

TEST(NsValueDeathTest, ARunWithoutMemoryAborts) {
    EXPECT_ABORT(xml___NsSkipNcname(nullptr, -1), "source/xml/ns/xml_ns_skip.cpp", "length >= 0");
    EXPECT_ABORT(xml___NsSkipNcname(nullptr, 1), "source/xml/ns/xml_ns_skip.cpp",
                 "length == 0 || chs");
}

} // namespace
