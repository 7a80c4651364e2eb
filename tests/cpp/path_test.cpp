// Paths through the header, in both trees.
#include "tests/cpp/layers.hpp"

#include <iterator>

static_assert(std::input_iterator<voxml::selection::iterator>);

namespace {

TEST(CppPath, SelectsViewsOneAfterAnother) {
    const auto doc = test::decoded<test::Plain>("<a><p:b c='1'>x<d/>&amp;</p:b><p:b c='2'/></a>");
    const auto path = voxml::path::make("//p:b/@c | //p:b").value();
    std::string found;
    auto nodes = doc.select(path);
    for (const voxml::view &node : nodes)
        found += std::string(node.name()) + "=" + nodes.text() + ",";
    EXPECT_EQ(found, "p:b=x&,c=1,p:b=,c=2,");
    EXPECT_FALSE(nodes.first());
    EXPECT_EQ(nodes.text(), "");
    const auto second = doc.select(voxml::path::make("a/p:b[2]").value()).first();
    ASSERT_TRUE(second);
    EXPECT_EQ(second->select(voxml::path::make("@c").value()).text(), "2");
    EXPECT_EQ(second->attribute("c"), "2");
}

TEST(CppPath, BindsPrefixes) {
    const auto doc = test::decoded<test::Namespaced>("<a xmlns='n'><b>1</b><b xmlns=''>2</b></a>");
    voxml::namespace_map bindings;
    bindings.set(voxml::namespace_mapping::make("p", "n").value());
    const auto path = voxml::path::make("/p:a/p:b", bindings);
    EXPECT_EQ(doc.select(*path).text(), "1");
    EXPECT_EQ(doc.select(voxml::path::make("//b").value()).text(), "2");
    EXPECT_FALSE(doc.select(voxml::path::make("/a").value()).first());
}

TEST(CppPath, AMistakeIsAFailureWithItsPlace) {
    const auto path = voxml::path::make("a[\n$b]");
    ASSERT_FALSE(path);
    EXPECT_EQ(path.error().code(), voxml::errc::bad_path);
    EXPECT_EQ(path.error().to_string(), "2:1: error: variables are not known");
    EXPECT_EQ(path.error().byte_offset(), 3);
}

} // namespace
