// The header's values, strings, results and views, in both trees.
#include "tests/cpp/layers.hpp"

#include <fstream>
#include <map>
#include <ranges>
#include <sstream>
#include <thread>
#include <unordered_map>
#include <unordered_set>

using namespace test;
using voxml::errc;

static_assert(std::ranges::forward_range<voxml::elements>);
static_assert(std::ranges::forward_range<voxml::ns::items>);
static_assert(std::ranges::forward_range<voxml::attributes>);
static_assert(std::ranges::forward_range<voxml::namespace_map>);
static_assert(std::ranges::input_range<voxml::ns::views>);
// A copy of the cursor could not reach the nodes that come next.
static_assert(!std::is_copy_constructible_v<voxml::views>);

namespace {

LAYER_TEST_SUITE(Values);

TYPED_TEST(Values, AreBuiltInOneExpression) {
    using element = typename TypeParam::element;
    using attr = typename TypeParam::attr;
    const std::vector<std::string> texts = {"a<b", "c"};
    auto made = element::make("menu", attr{"day", "\"M&N\""}, voxml::comment::make(" c "),
                              element::make("dish", texts), voxml::cdata::make("<"),
                              voxml::processing_instruction::make("p i"), voxml::text::make("t"));
    EXPECT_EQ(xml(*made), "<menu day='\"M&amp;N\"'><!-- c --><dish>a&lt;bc</dish>"
                          "<![CDATA[<]]><?p i?>t</menu>");
}

TYPED_TEST(Values, ShareUntilOneOfThemChanges) {
    auto doc = decoded<TypeParam>("<a><b x='1'/><b/></a>");
    const auto before = doc;
    EXPECT_TRUE(
        doc.edit_root([](auto &root) { root.edit_child("b", [](auto &b) { b.clear(); }); }));
    EXPECT_EQ(xml(doc), "<a><b x=\"1\"/><b/></a>");
    doc.edit_root([](auto &root) {
        EXPECT_EQ(
            root.edit_children("b", [](auto &b) { return b.set_attribute("x", "2"); }).value(), 2);
        EXPECT_FALSE(root.edit_child("c", [](auto &) { ADD_FAILURE(); }));
        EXPECT_FALSE(root.edit_child(std::string("b\0", 2), [](auto &) { ADD_FAILURE(); }));
    });
    EXPECT_EQ(xml(doc), "<a><b x=\"2\"/><b x=\"2\"/></a>");
    EXPECT_EQ(xml(before), "<a><b x=\"1\"/><b/></a>");
}

TYPED_TEST(Values, ArePutBackWhenAnEditFailsOrThrows) {
    auto doc = decoded<TypeParam>("<a><b/></a>");
    const auto refused = doc.edit_root([](auto &root) {
        auto done = root.edit_child("b", [](auto &b) { return b.set_name("-"); });
        return done ? voxml::result<void>() : done.error();
    });
    EXPECT_EQ(refused.error().code(), errc::bad_name);
    EXPECT_THROW(doc.edit_root([](auto &root) { root.edit_at(0, [](auto &) { throw 1; }); }), int);
    EXPECT_EQ(xml(doc), "<a><b/></a>");
}

TYPED_TEST(Values, CountTheEditsThatDidWhatTheyWereCalledFor) {
    auto doc = decoded<TypeParam>("<a><b><c/></b><b/>t<b><c/><c/></b></a>");
    const auto add = [](auto &c) { return c.append("1"); };
    doc.edit_root([&](auto &root) {
        EXPECT_EQ(root.edit_children("b", [&](auto &b) { return b.edit_child("c", add); }).value(),
                  2);
        EXPECT_EQ(root.edit_children("b", [](auto &b) { return b.size(); }), 2);
        EXPECT_EQ(root.edit_all([](auto &each) { return each.set_text("?").value(), each.name(); }),
                  1);
    });
    EXPECT_EQ(xml(doc), "<a>?</a>");
}

TYPED_TEST(Values, AreChangedAtAnyDepthInDocumentOrder) {
    auto doc = decoded<TypeParam>("<a><b><c/>t</b><d><e><f/></e></d></a>");
    const auto before = doc;
    std::string order;
    const auto rename = [&](auto &el) -> voxml::result<void> {
        order += el.name() == "e" ? "!" : "";
        if (el.name() == "f") return el.set_name("-");
        return el.set_name(std::string(1, static_cast<char>('A' + order.size() / 2)) + "1");
    };
    EXPECT_EQ(doc.edit_all(rename).error().code(), errc::bad_name);
    EXPECT_EQ(xml(doc), "<A1><A1><A1/>t</A1><A1><A1><f/></A1></A1></A1>");
    EXPECT_EQ(order, "!");
    EXPECT_EQ(xml(before), "<a><b><c/>t</b><d><e><f/></e></d></a>");
    EXPECT_THROW(doc.edit_all([](auto &el) {
        if (el.name() == "f") throw 1;
    }),
                 int);
    EXPECT_EQ(doc.edit_all([](auto &el) { return el.name() == "A1"; }), 5);
    EXPECT_EQ(typename TypeParam::document().edit_all([](auto &) { ADD_FAILURE(); }), 0);

    auto root = *doc.root();
    doc = typename TypeParam::document();
    auto taken = root.take_at(1).value();
    EXPECT_FALSE(root.take_at(1));
    taken.set_name("g").value();
    root.set(1, taken);
    EXPECT_EQ(xml(root), "<A1><A1><A1/>t</A1><g><A1><f/></A1></g></A1>");
}

TYPED_TEST(Values, HaveAttributesThatAreRenamedInTheirPlace) {
    auto root = *decoded<TypeParam>("<a x='1' y='2' z='3'/>").root();
    auto attributes = root.attributes();
    auto renamed = attributes[1];
    renamed.set_name("z").value();
    attributes.set(1, renamed);
    root.set_attributes(attributes);
    EXPECT_EQ(xml(root), "<a x=\"1\" z=\"2\"/>");
    EXPECT_EQ(renamed.set_name("-").error().code(), errc::bad_name);
}

TYPED_TEST(Values, TakeTheirOwnStringsAsParameters) {
    using element = typename TypeParam::element;
    using attr = typename TypeParam::attr;
    const auto from = decoded<TypeParam>("<l\u00E9 x='&lt;'>&amp;</l\u00E9>");
    const auto root = *from.root();
    const voxml::string value = *root.attribute("x");
    auto to = element::make("a", element::make(root.name(), attr{value.empty() ? "y" : "x", value},
                                               *root.text()))
                  .value();
    EXPECT_EQ(xml(to), "<a>" + xml(root) + "</a>");
    EXPECT_EQ(*to.child(root.name())->attribute("x"), value);
    EXPECT_EQ(to.view().child(root.name())->attribute("x"), "<");
    EXPECT_TRUE(to.child(root.name())->name() == root.name() && to.name() != root.name());
    EXPECT_EQ(to.edit_child(root.name(), [](auto &) {}), true);
    size_t found = 0;
    for ([[maybe_unused]] const auto &each : to.elements(root.name()))
        ++found;
    EXPECT_EQ(found, 1u);
}

TYPED_TEST(Values, LoseNothingWhenEditsMeet) {
    auto doc = decoded<TypeParam>("<a><b/><c/></a>");
    doc.edit_root([&](auto &root) {
        EXPECT_FALSE(doc.edit_root([](auto &) { ADD_FAILURE(); }));
        root.edit_at(0, [&](auto &b) {
            EXPECT_FALSE(root.edit_at(0, [](auto &) { ADD_FAILURE(); }));
            EXPECT_TRUE(root.edit_at(1, [](auto &c) { c.append("2").value(); }));
            b.append("1").value();
        });
        EXPECT_DEATH(root.edit_at(0, [&](auto &) { root.clear(); }),
                     "were changed while a child was edited");
    });
    EXPECT_EQ(xml(doc), "<a><b>1</b><c>2</c></a>");
    EXPECT_DEATH(doc.edit_root([&](auto &root) { doc.set_root(root); }),
                 "given items while its root was edited");
}

TYPED_TEST(Values, RefuseWhatATreeCannotHold) {
    using element = typename TypeParam::element;
    using attr = typename TypeParam::attr;
    auto el = element::make("a", attr{"x", "1"}).value();
    const auto code = [](const auto &result) { return result.error().code(); };
    EXPECT_EQ(code(element::make("")), errc::bad_name);
    EXPECT_EQ(code(element::make("a", element::make("\xC0\x80"))), errc::bad_utf8);
    EXPECT_EQ(code(el.append("\xED\xA0\x80")), errc::bad_utf8);
    EXPECT_EQ(code(el.set_name("a b")), errc::bad_name);
    EXPECT_EQ(code(el.set_attribute("x", "\xFF")), errc::bad_utf8);
    EXPECT_EQ(code(el.set_escaped_attribute("x", "<")), errc::bad_escaped_text);
    EXPECT_EQ(code(voxml::comment::make("a--b")), errc::bad_comment);
    EXPECT_EQ(code(voxml::cdata::make("]]>")), errc::bad_cdata);
    EXPECT_EQ(code(voxml::processing_instruction::make("1")), errc::bad_processing_instruction);
    EXPECT_EQ(code(typename TypeParam::document().set_version("2")), errc::bad_version);
    EXPECT_FALSE(el.attribute("a b") || el.has_attribute("\xFF") || el.child("<"));
    el.remove_attribute("a b");
    EXPECT_EQ(xml(el), "<a x=\"1\"/>");
}

TYPED_TEST(Values, AreReadAlikeAsObjectsAndThroughViews) {
    auto doc = decoded<TypeParam>("<a x='&lt;1' y='&unknown;'><b>t<!--c--><![CDATA[&]]><i>&gt;</i>"
                                  "</b><c/><b/>&unknown;</a>");
    const auto check = [](const auto &root) {
        EXPECT_EQ(*root.attribute("x"), "<1");
        EXPECT_EQ(*root.escaped_attribute("y"), "&unknown;");
        EXPECT_TRUE(root.has_attribute("y"));
        EXPECT_FALSE(root.attribute("y") || root.attribute("z") || root.text() || root.child("d"));
        EXPECT_EQ(*root.child("b")->text(), "t&>");
        EXPECT_EQ(*root.child("c")->text(), "");
        size_t named = 0, elements = 0, items = 0, attributes = 0;
        for (const auto &each : root.elements("b"))
            named += each.name() == "b";
        for ([[maybe_unused]] const auto &each : root.elements())
            ++elements;
        for ([[maybe_unused]] const auto &each : root.items())
            ++items;
        for ([[maybe_unused]] const auto &each : root.attributes())
            ++attributes;
        EXPECT_EQ(std::tuple(named, elements, items, attributes), std::tuple(2, 3, 4, 2));
    };
    check(*doc.view().root());
    const auto root = *doc.root();
    check(root);
    doc = {};
    root.make_all();
    check(root);
}

TYPED_TEST(Values, TellWhereTheyWereFound) {
    const auto doc = TypeParam::document::decode(declaration + "\n<a>\n <b/></a>",
                                                 {.locations = true, .source = "f.xml"})
                         .value();
    const auto found = doc.root()->child("b")->location();
    EXPECT_EQ(std::tuple(found->line, found->column), std::tuple(3, 2));
    EXPECT_EQ(*found->source, "f.xml");
    EXPECT_EQ(doc.view().root()->child("b")->location()->offset, found->offset);
    EXPECT_FALSE(decoded<TypeParam>("<a/>").root()->location());
}

TEST(Namespaces, GiveNamesAsPairs) {
    const auto doc = decoded<Namespaced>("<a xmlns='u' xmlns:p='v' p:x='1' x='2'><p:b/></a>");
    const auto check = [](const auto &root) {
        EXPECT_TRUE((root.name() == voxml::qname{"u", "a"}));
        EXPECT_EQ(*root.attribute({"v", "x"}), "1");
        EXPECT_EQ(*root.attribute("x"), "2");
        EXPECT_TRUE(root.child({"v", "b"}) && !root.child("b"));
    };
    check(*doc.root());
    check(*doc.view().root());
    const auto map = *doc.root()->namespaces();
    EXPECT_EQ(*map.find_prefix("p")->ns(), "v");
    EXPECT_FALSE(map.find_prefix("")->prefix());
    EXPECT_EQ(xml(doc.plain()), "<a p:x=\"1\" x=\"2\" xmlns=\"u\" xmlns:p=\"v\"><p:b/></a>");
    EXPECT_EQ(doc.plain().resolve()->root()->size(), 1);
    EXPECT_EQ(voxml::ns::element::make({"http://www.w3.org/2000/xmlns/", "a"}).error().code(),
              errc::bad_namespace);
    EXPECT_EQ(voxml::ns::element::make("a", voxml::attr{"xmlns", "u"}).error().code(),
              errc::bad_name);
    std::map<voxml::expanded_name, int> counts;
    std::unordered_map<voxml::expanded_name, int> hashed;
    for (const auto &attribute : doc.root()->attributes())
        for (int i = 0; i < 2; ++i)
            ++counts[attribute.name()], ++hashed[attribute.name()];
    EXPECT_EQ(counts.size(), 2u);
    EXPECT_EQ(hashed[counts.begin()->first] + counts.begin()->second, 4);
    EXPECT_FALSE(counts.begin()->first.ns);
    const voxml::qname odd(std::string_view("u\0v", 3), "a");
    EXPECT_EQ(xml(*voxml::ns::element::make("b", voxml::ns::element::make(odd))->child(odd)),
              xml(voxml::ns::element::make(odd).value()));
}

TEST(Strings, ComparePrintAndHashAsTheirText) {
    const std::string utf8 = "a\u00E9\u20AC\U0001F600";
    const auto made = voxml::element::make("n", utf8).value();
    const voxml::string string = *made.text();
    EXPECT_EQ(string, utf8);
    for (size_t cut = 0; cut < utf8.size(); ++cut)
        EXPECT_NE(string, utf8.substr(0, cut)) << cut;
    EXPECT_NE(string, utf8 + "x");
    EXPECT_EQ(string.u32(), U"a\u00E9\u20AC\U0001F600");
    EXPECT_EQ(std::string(string), utf8);
    std::ostringstream out;
    out << string;
    EXPECT_EQ(out.str(), utf8);
    EXPECT_EQ(std::unordered_set<voxml::string>({string, *made.text()}).size(), 1u);
    const uint32_t surrogate = 0xD800;
    EXPECT_EQ(voxml::string(voxml::adopt, voStringCreateFromCharsCopy(&surrogate, 1)).str(),
              "\uFFFD");
}

TEST(Views, KeepTheirStringsAndDoNotDisturbEachOther) {
    const auto doc = decoded<Plain>("<a x='&lt;' y='&gt;'><b z='&amp;'>1</b><b>2</b></a>");
    const auto root = *doc.view().root();
    const auto x = *root.attribute("x"), y = *root.attribute("y");
    std::string read;
    for (const auto &b : root.elements("b")) {
        const auto copy = b;
        read +=
            std::string(*b.text()) + std::string(*root.attribute("x")) + std::string(*copy.text());
    }
    EXPECT_EQ(read, "1<12<2");
    EXPECT_EQ(std::string(x) + std::string(y), "<>");
    for (const auto &attribute : root.attributes())
        EXPECT_EQ(attribute.text(), attribute.value());
    EXPECT_EQ(doc.view().text(), "12");
}

TYPED_TEST(Values, AreSeenAtAnyDepthThroughViews) {
    const auto doc = decoded<TypeParam>("<a><b><c/>t<a><c/></a></b><c><!--c--></c></a><c/>");
    const auto names = [](auto range) {
        std::string all;
        for (const auto &each : range) {
            const auto copy = each;
            all +=
                typename TypeParam::element::name_arg(copy.name()).keep() == copy.name() ? "" : "?";
            all += each.text() == "t" ? "b" : each.name() == "a" ? "a" : "c";
            for ([[maybe_unused]] const auto &below : copy.descendants())
                all += ".";
        }
        return all;
    };
    EXPECT_EQ(names(doc.view().descendants()), "b.....b...ca.ccc");
    EXPECT_EQ(names(doc.view().root()->descendants()), "b...ca.cc");
    EXPECT_EQ(names(doc.view().descendants("c")), "cccc");
    EXPECT_EQ(names(doc.view().root()->child("c")->descendants()), "");
}

TEST(Views, StaySmallHoweverDeepLinear) {
    const auto seconds = [](size_t depth) {
        std::string text = declaration;
        for (size_t i = 0; i < depth; ++i)
            text += "<a>";
        for (size_t i = 0; i < depth; ++i)
            text += "</a>";
        const auto doc = voxml::document::decode(text).value();
        const double start = threadSeconds();
        std::vector<voxml::view> way{doc.view()};
        while (auto child = way.back().child("a"))
            way.push_back(*child);
        EXPECT_EQ(way.size(), depth + 1);
        return threadSeconds() - start;
    };
    EXPECT_LT(seconds(20000), seconds(2000) * test::tenfold);
}

struct Refusal {
    std::string text;
    errc code;
    int64_t line, column, byte;
};

TEST(Failures, SayWhatIsWrongAndWhere) {
    for (const Refusal &row : {Refusal{"\n<a>\n</b>", errc::tag_mismatch, 3, 1, 43},
                               Refusal{"<a x='\u20AC'>&</a>", errc::text, 1, 48, 49},
                               Refusal{"<!DOCTYPE a>", errc::doctype, 1, 39, 38},
                               Refusal{"\r\n<\u20AC>\xFF", errc::charset, 2, 4, 45},
                               Refusal{"<p:a/>", errc::namespace_prefix_unknown, 1, 39, 38}}) {
        const auto refused = voxml::ns::document::decode(declaration + row.text, {.source = "f"});
        ASSERT_FALSE(refused) << row.text;
        const voxml::failure &why = refused.error();
        EXPECT_EQ(why.code(), row.code) << row.text;
        EXPECT_EQ(std::tuple(why.line(), why.column(), why.byte_offset()),
                  std::tuple(row.line, row.column, row.byte))
            << row.text;
        EXPECT_EQ(why.to_string(), "f:" + std::to_string(row.line) + ":" +
                                       std::to_string(row.column) + ": error: " + why.message());
    }
    const auto mismatch = voxml::document::decode(declaration + "<a></b>").error();
    EXPECT_NE(mismatch.hint().find("<a>"), std::string::npos) << mismatch.hint();
    EXPECT_DEATH((void)voxml::element::make("-").value(), "not a name");
    EXPECT_DEATH((void)voxml::element::make("a").error(), "result that has a value");
    EXPECT_DEATH((void)voxml::result<void>().error(), "result without a failure");
    EXPECT_FALSE(voxml::document::decode("").error().where());
}

TEST(Encoding, LaysOutWhereThatIsAskedFor) {
    const auto doc = decoded<Plain>("<a><b c='1'/></a>");
    EXPECT_EQ(doc.encode({.declaration = false, .layout = voxml::layout{}})->view(),
              "<a>\n  <b c=\"1\"/>\n</a>\n");
    EXPECT_EQ(
        doc.encode({.declaration = false, .layout = voxml::layout{voxml::layout::tab, 1}})->view(),
        "<a>\n\t<b\n\t\t\tc=\"1\"/>\n</a>\n");
}

TEST(Files, AreReadAndWrittenWholeOrNotAtAll) {
    const std::string path = testing::TempDir() + "voxml_cpp_test.xml";
    auto doc = decoded<Plain>("<a>\u00E9</a>");
    ASSERT_TRUE(doc.encode_file(path));
    EXPECT_EQ(xml(voxml::document::decode_file(path).value()), xml(doc));
    doc.set_charset(VO_CHARSET_US_ASCII);
    const auto unwritten = doc.encode_file(path).error();
    EXPECT_EQ(unwritten.code(), errc::charset_too_small);
    EXPECT_EQ(unwritten.to_string(),
              path + ": error: US-ASCII lacks a character of the text: U+00E9");
    EXPECT_EQ(doc.root()->encode(VO_CHARSET_US_ASCII).error().message(), unwritten.message());
    EXPECT_TRUE(voxml::document::decode_file(path));
    std::remove(path.c_str());
    const auto missing = voxml::document::decode_file(path).error();
    EXPECT_EQ(missing.code(), errc::file);
    EXPECT_EQ(missing.system_error(), ENOENT);
    EXPECT_EQ(voxml::document().encode_file(path + "/x").error().code(), errc::file);
    EXPECT_FALSE(std::ifstream(path));
    const std::string odd = path + "\xFF";
    std::ofstream(odd) << "<";
    EXPECT_EQ(voxml::document::decode_file(odd).error().to_string().find(path), 0u);
    std::remove(odd.c_str());
}

TEST(Threads, DeriveTreesFromOneAndReadIt) {
    const auto doc = decoded<Plain>("<a><b/><b/></a>");
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([doc = voxml::document(doc), i]() mutable {
            const std::string mine = std::to_string(i);
            doc.edit_root([&](auto &root) {
                EXPECT_EQ(
                    root.edit_children("b", [&](auto &b) { return b.set_text(mine); }).value(), 2);
            });
            EXPECT_EQ(*doc.view().root()->text(), mine + mine);
        });
    for (auto &thread : threads)
        thread.join();
    EXPECT_EQ(xml(doc), "<a><b/><b/></a>");
}

} // namespace
