// What paths mean, which of them are wrong, and what they cost.
#include "tests/xml/codec.hpp"
#include "xml/xml_path.h"

namespace {

std::string view(XML_UTF8 text) { return std::string(text.bytes, size_t(text.length)); }

using Bindings = std::vector<std::pair<std::string, std::string>>;

Ref<XML_NS_NAMESPACE_MAP> mapOf(const Bindings &bindings) {
    Ref map(xmlNsNamespaceMapCreate());
    for (const auto &[prefix, ns] : bindings) {
        Ref mapping(xmlNsNamespaceMappingCreate());
        xmlNsNamespaceMappingSetPrefix(mapping.edit(), test::str(prefix));
        xmlNsNamespaceMappingSetNamespace(mapping.edit(), test::str(ns));
        xmlNsNamespaceMapAppendMapping(map.edit(), mapping);
    }
    return map;
}

Ref<XML_PATH> compile(const std::string &expression, XML_NS_NAMESPACE_MAP *optionalMap = nullptr) {
    Ref path(xmlPathTryCreate(expression.c_str(), -1, optionalMap, nullptr));
    EXPECT_TRUE(path) << expression;
    return path;
}

/// The nodes as `name=text` or `=text`, with commas between them.
std::string found(XML_PATH *path, XML_CURSOR *from) {
    std::string all;
    Ref selection(xmlPathSelect(path, from));
    while (xmlSelectionNext(selection)) {
        XML_CURSOR *at = xmlSelectionCursor(selection);
        if (!all.empty()) all += ",";
        all += view(xmlCursorName(at)) + "=" + view(xmlSelectionText(selection));
    }
    EXPECT_FALSE(xmlSelectionNext(selection));
    return all;
}

Ref<XML_NS_DOCUMENT> resolved(const std::string &xml) {
    auto plain = test::decode("<?xml version='1.0'?>" + xml);
    EXPECT_TRUE(plain.document) << plain.error;
    return test::nsDecode(plain.document).document;
}

int64_t count(const std::string &expression, XML_NS_DOCUMENT *document) {
    Ref selection(xmlPathSelect(compile(expression), Ref(xmlCursorCreateNs(document))));
    int64_t number = 0;
    while (xmlSelectionNext(selection))
        ++number;
    return number;
}

/// What other readers see otherwise, or do not know, and so is not compared with them.
TEST(Path, NodesAreThoseOfXPath) {
    Ref document =
        resolved("<a xmlns:p='q' p:b='1&amp;2' b='3'>t<![CDATA[<u]]>&gt;<![CDATA[]]>"
                 "<p:b/><![CDATA[]]><![CDATA[]]><?x  y z?><b xmlns='q'>1</b></a> <!--c-->");
    const std::pair<std::string, std::string> rows[] = {
        {"//text()", "=t<u>,=1"},
        {"/a/text()[1]", "=t<u>"},
        {"/node()", "a=t<u>1,=c"},
        {"/a/node()[3]", "=y z"},
        {"/a/node()[last()]/..", "a=t<u>1"},
        {"//@*", "b=1&2,b=3"},
        {"//@p:b | //@b", "b=1&2,b=3"},
        {"//b", ""},
        {"//{q}b | //{q}*", "b=,b=1"},
        {"//{}a", "a=t<u>1"},
        {"//p:*[.=1]", "b=1"},
        {"//processing-instruction('x')|//processing-instruction('y')", "=y z"},
        {"/a[starts-with(., 't<')][text() = 't<u>']/@b", "b=3"},
    };
    for (const bool areObjects : {false, true}) {
        if (areObjects) xmlNsDocumentMakeAll(document);
        for (const auto &[expression, wanted] : rows)
            EXPECT_EQ(
                found(compile(expression, mapOf({{"p", "q"}})), Ref(xmlCursorCreateNs(document))),
                wanted)
                << expression;
    }
}

TEST(Path, NamesOfAPlainTreeAreComparedAsTheyAreWritten) {
    Ref document = test::plain("<p:a xmlns:p='q' xmlns='r' p:b='1'><b/></p:a>");
    Ref cursor(xmlCursorCreate(document));
    EXPECT_EQ(found(compile("//p:a/@p:b | //b | //@xmlns | //@*[2]"), cursor), "p:b=1,b=");
    EXPECT_EQ(found(compile("//p:a | //{q}a", mapOf({{"p", "q"}})), cursor), "");
}

/// Nothing is above what the cursor was made for; beyond the node from which it is selected, there
/// may be.
TEST(Path, SelectsFromAnyNode) {
    Ref document = resolved("<a><b c='1' d='2'/><b c='3'>4</b></a>");
    Ref cursor(xmlCursorCreateNs(document));
    xmlCursorFirstChild(cursor);
    xmlCursorFirstChild(cursor);
    EXPECT_EQ(found(compile("@d | ../b[2] | /a/b[2]/@c"), cursor), "d=2,b=4,c=3");
    Ref inner(xmlCursorCreateHere(cursor));
    EXPECT_EQ(found(compile(".. | /@c | ../b"), inner), "c=1");
    xmlCursorFirstAttribute(cursor);
    xmlCursorNext(cursor);
    EXPECT_EQ(found(compile("../@c | . | ../../b[@c > 2] | /.."), cursor), "c=1,d=2,b=4");
    EXPECT_EQ(found(compile("..//@*[../@c = 1]"), cursor), "c=1,d=2");
}

TEST(Path, TellsTheWayToANode) {
    Ref document = resolved("<a>t<b/><?x?><b><c d='1'>t<![CDATA[u]]><e/></c></b></a>");
    const auto ways = [&](const std::string &expression, XML_CURSOR *from) {
        std::string all;
        Ref selection(xmlPathSelect(compile(expression), from));
        while (xmlSelectionNext(selection)) {
            for (int64_t level = 0; level < xmlSelectionDepth(selection); ++level)
                all += "/" + std::to_string(xmlSelectionIndexAt(selection, level));
            all += " ";
        }
        return all;
    };
    Ref cursor(xmlCursorCreateNs(document));
    EXPECT_EQ(ways("/ | //e | //@d | //b[1]", cursor), " /0/1 /0/3/0/0 /0/3/0/2 ");
    xmlCursorFirstChild(cursor);
    xmlCursorFirstChild(cursor);
    xmlCursorNext(cursor);
    EXPECT_EQ(ways(".", cursor), " ");
    EXPECT_EQ(ways("../b", cursor), "/1 /3 ");
    EXPECT_EQ(ways("/a/b", cursor), "/0/1 /0/3 ");
}

TEST(Path, ASelectionHasNoNodeBeforeAndBehindAll) {
    Ref document = resolved("<a/>");
    Ref selection(xmlPathSelect(compile("a"), Ref(xmlCursorCreateNs(document))));
    const char *file = "source/xml/path/xml_selection.cpp";
    EXPECT_ABORT(xmlSelectionCursor(selection), file, "selection->state->isOnNode");
    EXPECT_TRUE(xmlSelectionNext(selection));
    EXPECT_ABORT(xmlSelectionIndexAt(selection, 1), file,
                 "level >= 0 && level < int64_t(node.depth())");
    EXPECT_FALSE(xmlSelectionNext(selection));
    EXPECT_ABORT(xmlSelectionText(selection), file, "selection->state->isOnNode");
}

TEST(Path, UnknownEntitiesCountAsTheyAreStored) {
    Ref document = resolved("<a b='&c;&amp;'>&c;&lt;</a>");
    EXPECT_EQ(found(compile("//@b | //text()"), Ref(xmlCursorCreateNs(document))),
              "b=&c;&amp;,=&c;&lt;");
}

TEST(Path, MistakesHaveTheirPlace) {
    const struct {
        std::string expression;
        std::string message;
        int64_t byte;
    } rows[] = {
        {"", "1:1: error: a step is missing", 0},
        {"//", "1:3: error: a step is missing", 2},
        {"a[", "1:3: error: a step is missing", 2},
        {"a[1", "1:4: error: ']' is missing", 3},
        {"a]", "1:2: error: this is not expected here: ]", 1},
        {"\u00E9\n/@", "2:3: error: a name is missing", 5},
        {"a[b + 1]", "1:5: error: arithmetic is not known", 4},
        {"a[b mod 2]", "1:5: error: arithmetic is not known", 4},
        {"count(a)", "1:1: error: this gives a value, not nodes", 0},
        {"a[id('b')]", "1:3: error: this function is not known: id", 2},
        {"a[count('b')]", "1:9: error: count() takes nodes", 8},
        {"a[contains(b)]", "1:13: error: another argument is missing", 12},
        {"a[not()]", "1:7: error: an argument is missing: not", 6},
        {"child::a", "1:1: error: axes are known in their short form only: child", 0},
        {"p:a", "1:1: error: this prefix is not bound: p", 0},
        {"a['b]", "1:3: error: the end of this text is missing", 2},
        {"a[$b]", "1:3: error: variables are not known", 2},
        {".[a]", "1:2: error: '.' and '..' take no conditions here", 1},
        {"(a)[1]", "1:4: error: conditions go with steps only", 3},
        {"(a)/b", "1:4: error: steps follow steps only", 3},
        {"a | 'b'", "1:5: error: '|' joins nodes only", 4},
        {"{q a", "1:1: error: '}' is missing", 0},
        {"a[\xFF]", "1:1: error: ill-formed UTF-8", 0},
    };
    for (const auto &[expression, message, byte] : rows) {
        XML_PATH_ERROR error{};
        Ref path(xmlPathTryCreate(expression.c_str(), -1, mapOf({}), &error));
        ASSERT_FALSE(path) << expression;
        EXPECT_EQ(test::take(voMessageToString(error.message)), message) << expression;
        EXPECT_EQ(error.byteOffset, byte) << expression;
        voMessageRelease(error.message);
    }
}

std::string repeated(std::string_view piece, int64_t count) {
    std::string all;
    for (; count > 0; --count)
        all += piece;
    return all;
}

/// On a small stack, unless a sanitizer makes frames several times as large.
void onLittleStack(const std::function<void()> &work) {
    TEST_SANITIZED ? work() : test::onSmallStack(work);
}

/// Whatever its size, an expression is read and evaluated with little stack, or refused.
TEST(Path, LargeExpressionsEndInResultsOrErrors) {
    Ref document = resolved("<a><a b='1'/></a>");
    const auto outcome = [&](const std::string &expression) {
        Ref path(xmlPathTryCreate(expression.c_str(), -1, nullptr, nullptr));
        return path ? found(path, Ref(xmlCursorCreateNs(document))) : "refused";
    };
    onLittleStack([&] {
        const int64_t many = 10'000;
        EXPECT_EQ(outcome(repeated("a[", many) + "a" + repeated("]", many)), "refused");
        EXPECT_EQ(outcome("a[" + repeated("(", many) + "1" + repeated(")", many) + "]"), "refused");
        EXPECT_EQ(outcome("a[" + repeated("not(", many) + "1" + repeated(")", many) + "]"),
                  "refused");
        EXPECT_EQ(outcome("a" + repeated("/a", many)), "refused");
        EXPECT_EQ(outcome("a" + repeated("//..", many)), "refused");
        EXPECT_EQ(outcome("a" + repeated("|a", many)), "refused");
        EXPECT_EQ(outcome("a[1" + repeated("=1", many) + "]"), "refused");
        EXPECT_EQ(outcome("a" + repeated("[a]", many)), "a=");
        EXPECT_EQ(outcome("a[0" + repeated(" or a", many) + "]"), "a=");
        EXPECT_EQ(outcome("a[" + repeated("-", many) + "1]"), "a=");
        EXPECT_EQ(outcome("a[" + repeated("-", many) + "count(a)]"), "a=");
        EXPECT_EQ(outcome(repeated("a[.//", 50) + "a" + repeated("]", 50)), "");
        EXPECT_EQ(outcome("a" + repeated("[a[last()][1]", 60) + repeated("]", 60)), "");
    });
}

TEST(Path, DepthNeedsNoStackAndNoMoreThanLinearTime) {
    const int64_t depth = TEST_SANITIZED ? 100'000 : 1'000'000;
    test::onSmallStack([&] {
        Ref document = resolved(repeated("<a>", depth) + "<b>x</b>" + repeated("</a>", depth));
        EXPECT_EQ(count("//a", document), depth);
        EXPECT_EQ(count("//b/..", document), 1);
        EXPECT_EQ(count("//a[.//b]", document), depth);
        EXPECT_EQ(count("//a[.//c]", document), 0);
        EXPECT_EQ(count("//a[../a[last()]]", document), depth);
        EXPECT_EQ(count("//*[not(../..)] | //b", document), 2);
        EXPECT_EQ(count("//a[/a/a]//b", document), 1);
    });
}

/// Among many brothers, too, a condition that asks at the parent is asked there once.
TEST(Path, WidthTakesLinearTime) {
    const auto seconds = [](int64_t width) {
        Ref document = resolved("<a>" + repeated("<b/>t", width) + "<c>1</c></a>");
        const double start = test::threadSeconds();
        EXPECT_EQ(count("//b[../c]", document), width);
        EXPECT_EQ(count("//b[../c = 1][last()]", document), 1);
        EXPECT_EQ(count("//b[count(../b) = 0]", document), 0);
        EXPECT_EQ(count("//text()[. = 't']/../b", document), width);
        EXPECT_EQ(count("//b[/a/c]", document), width);
        return test::threadSeconds() - start;
    };
    const int64_t few = TEST_SANITIZED ? 2'000 : 10'000;
    const double base = seconds(few);
    EXPECT_LT(seconds(10 * few), test::tenfold * base);
}

} // namespace
