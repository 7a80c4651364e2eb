// Namespaces take time in proportion to elements and declarations.
#include "tests/timing/growth.hpp"
#include "tests/xml/codec.hpp"

using namespace test;

namespace {

/// Decodes and encodes a document.
double secondsOfRoundTrip(const std::string &xml) {
    double seconds = 0;
    onSmallStack([&] {
        Ref document = plain(xml), encoded(xmlDocumentCreate());
        seconds =
            secondsOf([&] { encoded = Ref(xmlNsDocumentEncode(nsDecode(document).document)); });
        EXPECT_EQ(xmlOf(encoded), xml);
    });
    return seconds;
}

/// Elements in elements, each with a prefix of its own.
std::string manyPrefixes(int64_t n) {
    std::string ends;
    for (int64_t i = n; i-- > 0;)
        ends += "</p" + std::to_string(i) + ":a>";
    return numbered(
               n, [](const auto &i) { return "<p" + i + ":a xmlns:p" + i + "=\"u" + i + "\">"; }) +
           "x" + ends;
}

/// Elements in elements that all declare the same prefix.
std::string onePrefix(int64_t n) {
    return numbered(n, [](const auto &i) { return "<p:a xmlns:p=\"u" + i.substr(0, 1) + "\">"; }) +
           "x" + repeated("</p:a>", n);
}

/// One element with many declarations and attributes.
std::string oneElement(int64_t n) {
    return "<p0:a" + numbered(n, [](const auto &i) { return " p" + i + ":b=\"1\""; }) +
           numbered(n, [](const auto &i) { return " xmlns:p" + i + "=\"u" + i + "\""; }) + "/>";
}

/// A map to which so many mappings are added.
double secondsOfGrowth(int64_t n, void (*add)(XML_NS_NAMESPACE_MAP **, const std::string &)) {
    const auto grow = [&] {
        Ref grown(xmlNsNamespaceMapCreate());
        for (int64_t i = 0; i < n; ++i)
            add(grown.edit(), std::to_string(i));
        EXPECT_TRUE(xmlNsNamespaceMapHasMappingForPrefix(grown, str("p" + std::to_string(n / 2))));
    };
    return secondsOf(grow);
}

} // namespace

TEST(NamespaceTiming, IsLinearInDepthAndWidthAndNeedsNoStack) {
    for (auto shape : {manyPrefixes, onePrefix, oneElement})
        expectLinear(50000, [&](int64_t n) { return secondsOfRoundTrip(shape(n)); });
}

TEST(NamespaceTiming, OfGrowingMapsIsLinear) {
    void (*const ways[])(XML_NS_NAMESPACE_MAP **, const std::string &) = {
        [](auto map, auto &i) { xmlNsNamespaceMapAppendMapping(map, mapping("p" + i + "=u" + i)); },
        [](auto map, auto &i) { xmlNsNamespaceMapSetMapping(map, mapping("p" + i + "=u")); },
        [](auto map, auto &i) { xmlNsNamespaceMapAppend(map, test::map("p" + i + "=u" + i)); },
    };
    for (auto way : ways)
        expectLinear(50000, [&](int64_t n) { return secondsOfGrowth(n, way); });
}
