#include "tests/xml/codec.hpp"
#include "tests/xml/mutator.hpp"
#include "tests/xml/random_xml.hpp"
#include "xml/xml_edit.h"
#include "xml/xml_path.h"

#include <cstdlib>

namespace {

struct Step {
    XML_EDIT_ACTION action;
    std::string path, text = {}, name = {};
};

struct Edited {
    std::string bytes; ///< Or "<null>".
    int64_t selected = 0;
    XML_EDIT_ERROR_CODE code = -1;
    int64_t edit = -1;
    std::string message;
};

XML_UTF8 utf8(const std::string &text) { return {text.data(), int64_t(text.size())}; }

Edited edit(const std::string &bytes, const std::vector<Step> &steps, bool namespaces = false) {
    std::vector<Ref<XML_PATH>> paths;
    std::vector<XML_EDIT> edits;
    edits.reserve(steps.size() + 1);
    for (const Step &step : steps) {
        paths.emplace_back(xmlPathTryCreate(step.path.c_str(), -1, nullptr, nullptr));
        EXPECT_TRUE(paths.back()) << step.path;
        edits.push_back({step.action, paths.back(), utf8(step.name), utf8(step.text)});
    }
    Edited edited;
    XML_EDIT_ERROR error{};
    Ref result(xmlDocumentTryEdit(test::buffer(bytes), edits.data(), int64_t(edits.size()),
                                  namespaces, &edited.selected, &error));
    if (!result) {
        Ref message(error.message);
        return {"<null>", edited.selected, error.code, error.edit,
                test::take(voMessageToString(message))};
    }
    edited.bytes = test::bytes(result);
    return edited;
}

const std::string head = "<?xml version='1.0'?>";

/// The same for a content without the declaration.
std::string editedContent(const std::string &xml, const std::vector<Step> &steps) {
    const Edited edited = edit(head + xml, steps);
    return edited.bytes.starts_with(head) ? edited.bytes.substr(head.size())
                                          : edited.bytes + edited.message;
}

enum : XML_EDIT_ACTION {
    set,
    setContent,
    setAttribute,
    remove_,
    rename_,
    before,
    after,
    into,
};

TEST(Edit, EachActionChangesTheNodeAndNothingElse) {
    struct Row {
        std::string xml;
        std::vector<Step> steps;
        std::string edited;
    };
    const Row rows[] = {
        {"<a  b = '1'c=\"2\" />",
         {{set, "/a/@b", "x'<&\">"}},
         "<a  b = 'x&apos;&lt;&amp;\">'c=\"2\" />"},
        {"<a b=''/>", {{set, "/a/@b", ""}}, "<a b=''/>"},
        {"<a>1<b/>2</a>", {{set, "/a", "<"}}, "<a>&lt;</a>"},
        {"< a / >", {{set, "/a", "x"}}, "< a >x</a>"},
        {"<a></ a >", {{set, "/a", "x"}}, "<a>x</ a >"},
        {"<a/>", {{set, "/a", ""}}, "<a/>"},
        {"<a>1<b/>2</a>", {{set, "/a/text()[2]", "&"}}, "<a>1<b/>&amp;</a>"},
        {"<a>1<![CDATA[2]]>3</a>", {{set, "/a/text()", "x"}}, "<a>x</a>"},
        {"<a><![CDATA[2]]></a>", {{set, "/a/text()", "<"}}, "<a><![CDATA[<]]></a>"},
        {"<a><!--c--></a>", {{set, "/a/comment()", "d"}}, "<a><!--d--></a>"},
        {"<?p?><?q  r?>", {{set, "//processing-instruction()", "x"}}, "<?p x?><?q  x?>"},
        {"<a>1</a>", {{setContent, "/a", "<b/>2"}}, "<a><b/>2</a>"},
        {"<a b='1' c='2'><d/></a>",
         {{setAttribute, "/a", "x", "c"}, {setAttribute, "//d", "\"", "e"}},
         "<a b='1' c='x'><d e=\"&quot;\"/></a>"},
        {"<a b='1'\n c='2'/>", {{remove_, "/a/@c"}}, "<a b='1'/>"},
        {"<a b='1'c='2'/>", {{remove_, "/a/@b"}}, "<a c='2'/>"},
        {"<a>\n  <b/>\r\n\t<c>1\n</c> \n</a>", {{remove_, "//c"}}, "<a>\n  <b/>\r\n</a>"},
        {"<a>\n  <b/> <c/>\n</a>", {{remove_, "//c"}}, "<a>\n  <b/> \n</a>"},
        {"<a>\n  1\n</a>", {{remove_, "/a/text()"}}, "<a></a>"},
        {"<a><b><b/></b><c/><b/></a>", {{remove_, "//b"}}, "<a><c/></a>"},
        {"<a  b='1'><b/></ a >", {{rename_, "/a", "", "x:y"}}, "<x:y  b='1'><b/></ x:y >"},
        {"<a b='1'/>", {{rename_, "/a/@b", "", "c"}, {rename_, "/a", "", "d"}}, "<d c='1'/>"},
        {"<a><a><a/></a></a>", {{rename_, "//a", "", "b"}}, "<b><b><b/></b></b>"},
        {"<a><b/></a>",
         {{after, "//b", "1"}, {into, "/a", "2"}, {before, "//b", "3"}, {after, "//b", "<c/>"}},
         "<a>3<b/>1<c/>2</a>"},
        {"<a/>",
         {{into, "/a", "<b/>"}, {rename_, "/a", "", "c"}, {into, "/a", "1"}},
         "<c><b/>1</c>"},
        {"<a/>\n", {{into, "/", "<!--c-->"}}, "<a/>\n<!--c-->"},
        {"<a>\n<b/>\n</a>", {{remove_, "//b"}, {after, "//b", "<c/>"}}, "<a>\n<c/>\n</a>"},
        {"", {{into, "/", "<a/>"}}, "<a/>"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(editedContent(row.xml, row.steps), row.edited) << row.xml;
}

TEST(Edit, WhatCannotBeDoneIsAnErrorWithItsPlace) {
    struct Row {
        std::vector<Step> steps;
        XML_EDIT_ERROR_CODE code;
        int64_t edit;
        std::string place;
    };
    const Row rows[] = {
        {{{rename_, "/a", "", "1"}}, XML_EDIT_ERROR_CODE_ARGUMENT, 0, ""},
        {{{setAttribute, "/a", "\xFF", "b"}}, XML_EDIT_ERROR_CODE_ARGUMENT, 0, ""},
        {{{into, "/a", "</a><a>"}}, XML_EDIT_ERROR_CODE_ARGUMENT, 0, ""},
        {{{into, "/a", "<b>"}}, XML_EDIT_ERROR_CODE_ARGUMENT, 0, ""},
        {{{set, "/a", ""}, {before, "//@b", ""}}, XML_EDIT_ERROR_CODE_NODE, 1, "1:25"},
        {{{remove_, "/"}}, XML_EDIT_ERROR_CODE_NODE, 0, "1:1"},
        {{{rename_, "//text()", "", "b"}}, XML_EDIT_ERROR_CODE_NODE, 0, "1:31"},
        {{{set, "//comment()", "--><b/><!--"}}, XML_EDIT_ERROR_CODE_NODE, 0, "1:40"},
        {{{set, "/a/@b", ""}, {set, "/a/@b", ""}}, XML_EDIT_ERROR_CODE_OVERLAP, 1, "1:27"},
        {{{set, "/a", ""}, {set, "//c", "x"}}, XML_EDIT_ERROR_CODE_OVERLAP, 1, "1:34"},
        {{{remove_, "/a"}, {set, "//@b", ""}}, XML_EDIT_ERROR_CODE_OVERLAP, 1, "1:27"},
        {{{setAttribute, "/a", "", "x"}, {setAttribute, "/a", "", "x"}},
         XML_EDIT_ERROR_CODE_RESULT,
         -1,
         "1:22"},
    };
    for (const Row &row : rows) {
        const Edited edited = edit(head + "<a b='1'>2<c/><!--3--></a>", row.steps);
        EXPECT_EQ(edited.code, row.code) << row.steps[0].path << edited.message;
        EXPECT_EQ(edited.edit, row.edit) << edited.message;
        EXPECT_TRUE(edited.message.starts_with(row.place)) << row.place << " " << edited.message;
    }
    EXPECT_EQ(edit("<a/>", {}).code, XML_EDIT_ERROR_CODE_INPUT);
    EXPECT_EQ(edit(head + "<p:a/>", {}, true).code, XML_EDIT_ERROR_CODE_INPUT);
    EXPECT_EQ(edit(head + "<a/>", {{into, "/a", "<p:b/>"}}, true).code, XML_EDIT_ERROR_CODE_RESULT);
}

std::string encoded(voCharset charset, std::string_view text, voCharsetFlags flags = 0) {
    Ref bytes(voCharsetTryConvertUtf8ToBufferWithFlags(charset, test::buffer(text), flags));
    return bytes ? test::bytes(bytes) : "<null>";
}

std::string declarationFor(voCharset charset) {
    return "<?xml version='1.0' encoding='" + test::take(voCharsetToIanaName(charset)) + "'?>";
}

TEST(Edit, BytesThatEncodingWouldNotGiveStayAsTheyAre) {
    struct Row {
        voCharset charset;
        std::string mark, before, behind; ///< Bytes around the value.
    };
    using namespace std::string_literals;
    const Row rows[] = {
        // Two codes for one character.
        {VO_CHARSET_SHIFT_JIS, "", "\xED\x40\xFA\x5C", "\x81\xCA\xEE\xF9"},
        {VO_CHARSET_GB18030, "", "\xB0\xA1", "\x81\x30\x84\x36"},
        {VO_CHARSET_UTF_8, "\xEF\xBB\xBF", "\xC3\xA9", "\xC3\xA9"},
        // Escapes that change nothing.
        {VO_CHARSET_ISO_2022_JP, "", "\x1B$B0!\x1B(B", "\x1B$B0!\x1B(B"},
    };
    for (const Row &row : rows) {
        const std::string opening = row.mark + declarationFor(row.charset) + "<a>" + row.before;
        const std::string closing = row.behind + "</a>";
        const Edited edited = edit(opening + "<b c='1'/>" + closing, {{set, "//@c", "\u3042x"}});
        const Edited plain = edit(opening + "<b c='1'/>" + closing, {{set, "//@c", "2"}});
        EXPECT_EQ(plain.bytes, opening + "<b c='2'/>" + closing) << row.charset << plain.message;
        EXPECT_EQ(edited.bytes,
                  opening + "<b c='" + encoded(row.charset, "\u3042x") + "'/>" + closing)
            << row.charset << edited.message;
    }
    for (const bool isMarked : {false, true})
        for (const voCharset order :
             {VO_CHARSET_UTF_16LE, VO_CHARSET_UTF_16BE, VO_CHARSET_UTF_32LE, VO_CHARSET_UTF_32BE}) {
            const bool isWide = order >= VO_CHARSET_UTF_32;
            const std::string text = declarationFor(isWide ? VO_CHARSET_UTF_32 : VO_CHARSET_UTF_16);
            const voCharsetFlags flags = isMarked ? VO_CHARSET_FLAG_BOM : 0;
            EXPECT_EQ(edit(encoded(order, text + "<a/>", flags), {{set, "/a", "\u00e9"}}).bytes,
                      encoded(order, text + "<a>\u00e9</a>", flags));
            EXPECT_EQ(edit(encoded(order, "<?xml?><a/>", flags), {{set, "/a", "\u00e9"}}).bytes,
                      encoded(order, "<?xml?><a>\u00e9</a>", flags));
        }
}

TEST(Edit, CharactersThatTheSetLacksBecomeReferencesInAttributesOnly) {
    const std::string xml = declarationFor(VO_CHARSET_ISO_8859_1) + "<a b='\xE9'>\xE9</a>";
    EXPECT_EQ(edit(xml, {{set, "/a/@b", "\u20ac\u00e9"}}).bytes,
              declarationFor(VO_CHARSET_ISO_8859_1) + "<a b='&#8364;\xE9'>\xE9</a>");
    const Edited refused = edit(xml, {{set, "/a/@b", "1"}, {set, "/a", "\u20ac"}});
    EXPECT_EQ(refused.code, XML_EDIT_ERROR_CODE_CHARSET);
    EXPECT_EQ(refused.edit, 1);
}

// ---------------------------------------------------------------- random edits

struct Event {
    int depth;
    XML_ITEM_TYPE type;
    std::string name, value;
    bool operator==(const Event &) const = default;
};
using Events = std::vector<Event>;

std::string textOf(XML_UTF8 text) {
    return text.bytes ? std::string(text.bytes, size_t(text.length)) : "";
}

void appendAttributes(Events &events, XML_CURSOR *cursor, int depth) {
    if (!xmlCursorFirstAttribute(cursor)) return;
    do
        events.push_back({depth, XML_CURSOR_TYPE_ATTRIBUTE, textOf(xmlCursorName(cursor)),
                          textOf(xmlCursorValue(cursor))});
    while (xmlCursorNext(cursor));
    xmlCursorParent(cursor);
}

/// The nodes of a document in order.
Events eventsOf(XML_DOCUMENT *document) {
    Events events;
    Ref cursor(xmlCursorCreate(document));
    int depth = 0;
    do {
        if (depth > 0) {
            const XML_ITEM_TYPE type = xmlCursorType(cursor);
            events.push_back(
                {depth, type, textOf(xmlCursorName(cursor)), textOf(xmlCursorValue(cursor))});
            if (type == XML_ITEM_TYPE_ELEMENT) appendAttributes(events, cursor, depth + 1);
        }
        if (xmlCursorFirstChild(cursor)) {
            ++depth;
            continue;
        }
        for (; depth > 0 && !xmlCursorNext(cursor); --depth)
            xmlCursorParent(cursor);
    } while (depth > 0);
    return events;
}

/// Behind a node and all that belongs to it.
size_t behind(const Events &events, size_t node) {
    size_t at = node + 1;
    while (at < events.size() && events[at].depth > events[node].depth)
        ++at;
    return at;
}

bool isText(const Event &event) {
    return event.type == XML_ITEM_TYPE_TEXT || event.type == XML_ITEM_TYPE_CDATA;
}

/// Texts that have become neighbours joined, and white space left out.
Events joined(const Events &events) {
    Events out;
    for (Event event : events) {
        if (event.type == XML_ITEM_TYPE_TEXT) {
            std::erase_if(event.value, [](char ch) { return strchr(" \t\r\n", ch); });
            if (event.value.empty()) continue;
            if (!out.empty() && out.back().type == event.type && out.back().depth == event.depth) {
                out.back().value += event.value;
                continue;
            }
        }
        out.push_back(event);
    }
    return out;
}

/// A node that a path leads to.
struct Choice {
    size_t node;
    std::string path;
};

/// The path by positions. Texts that are one node for paths, beside the root or empty, are left
/// out.
std::optional<Choice> choose(const Events &events, test::Mutator &random) {
    if (events.empty()) return std::nullopt;
    size_t node = random.below(events.size());
    const Event &chosen = events[node];
    if (isText(chosen)) {
        const bool isAlone = chosen.depth > 1 && !chosen.value.empty() &&
                             !(node > 0 && isText(events[node - 1])) &&
                             !(node + 1 < events.size() && isText(events[node + 1]));
        if (!isAlone) return std::nullopt;
    }
    if (chosen.type == XML_CURSOR_TYPE_ATTRIBUTE && chosen.name.starts_with("xmlns"))
        return std::nullopt;
    std::string path;
    int depth = chosen.depth;
    for (size_t at = node;;) {
        int before = 0;
        size_t next = at;
        while (next > 0 && events[next - 1].depth >= depth) {
            --next;
            const Event &other = events[next];
            if (other.depth != depth || other.type == XML_CURSOR_TYPE_ATTRIBUTE) continue;
            const bool isCounted = isText(events[at]) ? isText(other) && !other.value.empty() &&
                                                            !isText(events[next + 1])
                                                      : other.type == events[at].type;
            before += isCounted;
        }
        const Event &event = events[at];
        const std::string test = event.type == XML_ITEM_TYPE_ELEMENT   ? "*"
                                 : event.type == XML_ITEM_TYPE_COMMENT ? "comment()"
                                 : isText(event)                       ? "text()"
                                                                       : "processing-instruction()";
        path = (event.type == XML_CURSOR_TYPE_ATTRIBUTE
                    ? "/@" + event.name
                    : "/" + test + "[" + std::to_string(before + 1) + "]") +
               path;
        if (--depth == 0) return Choice{node, path};
        at = next - 1;
        while (events[at].depth != depth)
            --at;
    }
}

std::string escaped(std::string text) {
    for (size_t at = 0; (at = text.find_first_of("&<", at)) != text.npos; ++at)
        text.replace(at, 1, text[at] == '&' ? "&amp;" : "&lt;");
    return text;
}

/// What an edit should make of a document; nothing where it does not apply.
std::optional<Events> expected(const Events &events, size_t node, const Step &step) {
    static const Event element{0, XML_ITEM_TYPE_ELEMENT, "new", ""};
    static const Event attribute{1, XML_CURSOR_TYPE_ATTRIBUTE, "x", "1"};
    Events out = events;
    Event &event = out[node];
    const int depth = event.depth;
    const bool isElement = event.type == XML_ITEM_TYPE_ELEMENT;
    const bool isAttribute = event.type == XML_CURSOR_TYPE_ATTRIBUTE;
    const size_t end = behind(events, node);
    const auto insert = [&](size_t place, int below) {
        Events added{element, attribute};
        for (Event &one : added)
            one.depth += below;
        out.insert(out.begin() + ptrdiff_t(place), added.begin(), added.end());
        return out;
    };
    switch (step.action) {
    case set: {
        if (event.type == XML_ITEM_TYPE_PROCESSING_INSTRUCTION) return std::nullopt;
        const bool isEscaped = event.type == XML_ITEM_TYPE_TEXT || isAttribute;
        if (!isElement) return event.value = isEscaped ? escaped(step.text) : step.text, out;
        size_t content = node + 1;
        while (content < end && out[content].type == XML_CURSOR_TYPE_ATTRIBUTE &&
               out[content].depth == depth + 1)
            ++content;
        out.erase(out.begin() + ptrdiff_t(content), out.begin() + ptrdiff_t(end));
        out.insert(out.begin() + ptrdiff_t(content),
                   {depth + 1, XML_ITEM_TYPE_TEXT, "", escaped(step.text)});
        return out;
    }
    case remove_:
        out.erase(out.begin() + ptrdiff_t(node), out.begin() + ptrdiff_t(end));
        return out;
    case rename_:
        if (!isElement && !isAttribute) return std::nullopt;
        return event.name = step.name, out;
    case before:
        return isAttribute ? std::nullopt : std::optional(insert(node, depth));
    case after:
        return isAttribute ? std::nullopt : std::optional(insert(end, depth));
    default:
        return isElement ? std::optional(insert(end, depth + 1)) : std::nullopt;
    }
}

/// A random document in a character set, without characters that this lacks.
std::string randomText(uint32_t seed, voCharset charset) {
    const std::string text = test::RandomXml(seed).document(1 + int(seed % 40));
    std::string out = declarationFor(charset);
    for (size_t at = text.find("?>") + 2, next; at < text.size(); at = next) {
        next = at + 1;
        while (next < text.size() && (uint8_t(text[next]) & 0xC0) == 0x80)
            ++next;
        const std::string ch = text.substr(at, next - at);
        out += ch.size() == 1 || encoded(charset, ch + "    ") != "<null>" ? ch : "x";
    }
    return out;
}

size_t commonPrefix(std::string_view a, std::string_view b) {
    return size_t(std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin());
}
size_t commonSuffix(std::string_view a, std::string_view b) {
    return size_t(std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin());
}

/// How much of a text, in bytes, an edit may have replaced.
size_t mostReplaced(const Event &event, const Step &step, size_t all) {
    if (step.action >= before) return 8; // "/>" with white space in between
    if (event.type == XML_ITEM_TYPE_ELEMENT || step.action == remove_) return all;
    return step.action == rename_ ? event.name.size() : event.value.size();
}

/// VOXML_EDITS is how many.
TEST(Edit, RandomEditsChangeWhatTheyAreAboutInAllCharacterSets) {
    const char *wanted = std::getenv("VOXML_EDITS");
    const int count = wanted ? std::atoi(wanted) : 500;
    int done = 0;
    for (uint32_t seed = 1; done < count; ++seed) {
        const voCharset charset = voCharset(seed % (VO_CHARSET_UTF_32LE + 1));
        test::Mutator random(seed);
        const std::string text = randomText(seed, charset);
        const std::string bytes = encoded(charset, text);
        const auto decoded = test::decode(bytes);
        if (!decoded.document) continue;
        const Events events = eventsOf(decoded.document);
        const auto choice = choose(events, random);
        if (!choice) continue;
        Step step{XML_EDIT_ACTION(random.below(8)), choice->path, "a<b & c", "renamed"};
        if (step.action >= before) step.text = "<new x=\"1\"/>";
        if (step.action == setContent || step.action == setAttribute) continue;
        const auto wantedEvents = expected(events, choice->node, step);
        if (!wantedEvents) continue;
        ++done;
        SCOPED_TRACE(std::to_string(seed) + " " + step.path + " " + std::to_string(step.action) +
                     " " + text);
        const Edited edited = edit(bytes, {step});
        ASSERT_EQ(edited.selected, 1) << edited.message;
        const auto result = test::decode(edited.bytes);
        ASSERT_TRUE(result.document) << edited.message << result.message;
        ASSERT_EQ(joined(eventsOf(result.document)), joined(*wantedEvents)) << edited.message;
        Ref resultText(xmlDocumentTryDecodeText(test::buffer(edited.bytes)));
        const std::string now = test::text(resultText);
        ASSERT_EQ(edited.bytes, encoded(charset, now));
        const size_t same = std::min(commonPrefix(text, now) + commonSuffix(text, now),
                                     std::min(text.size(), now.size()));
        ASSERT_LE(text.size() - same, mostReplaced(events[choice->node], step, text.size()));
        ASSERT_TRUE(step.action != remove_ || same == now.size());
    }
}

} // namespace
