#include "tests/xml/random_xml.hpp"

namespace test {
namespace {

constexpr std::string_view longName = "a.name-that_is.longer-than_sixteen";

constexpr std::string_view names[] = {
    "a",   "b",   "item", "name", "description", "exactly16letters", longName,
    "p:a", "p:b", "q:a",  "q:b",  "p:name",      "\u00E9l\u00E9ment"};
constexpr std::string_view texts[] = {
    "text",         " ",         "\n  ", "fish &amp; chips",
    "\u4E2D\u6587", "&unknown;", "]]>",  "a text of more than sixteen or thirty-two bytes"};
constexpr std::string_view values[] = {"",
                                       "v",
                                       "1 2 3",
                                       "&lt;&#65;&#x42;",
                                       "it",
                                       "\u00FCber",
                                       "urn:x y\tz",
                                       "a>b/c=d",
                                       "a value of more than sixteen or even thirty-two bytes"};
constexpr std::string_view others[] = {"<!--c-->",     "<!-- a - comment > -->",
                                       "<?pi?>",       "<?target some data?x?>",
                                       "<![CDATA[]]>", "<![CDATA[<a>&]]]]>"};
constexpr std::string_view spaces[] = {" ", "\n", "\t ", "\r\n    "};
constexpr std::string_view namespaces[] = {"urn:u", "urn:u", "urn:v", "x&amp;y", ""};
constexpr std::string_view declarations[] = {"<?xml version='1.0'?>",
                                             "<?xml version='1.0' encoding='UTF-8'?>",
                                             "<?xml version='1.1' standalone='yes'?>",
                                             "\xEF\xBB\xBF<?xml version=\"1.0\"?>\n",
                                             " \n<?xml?>",
                                             "<?xml version='1.0' encoding='ISO-8859-5'?>"};

} // namespace

std::string RandomXml::document(int nodes) {
    left = nodes;
    width = once(2) ? 3 : once(2) ? 12 : nodes;
    tidy = once(2);
    declares = !once(12);
    out = any(declarations);
    while (left > 0)
        node(0);
    return std::move(out);
}

void RandomXml::node(int depth) {
    --left;
    if (depth < 60 && !once(3)) return element(depth);
    out += once(2) ? any(texts) : any(others);
}

void RandomXml::element(int depth) {
    const std::string_view tag = name();
    (((out += '<') += space()) += tag);
    attributes(depth == 0);
    out += space();
    if (once(4)) {
        ((out += '/') += tidy ? "" : space()) += '>';
        return;
    }
    out += '>';
    for (int i = tidy ? 1 + below(width) : below(width + 1); left > 0 && i > 0; --i)
        node(depth + 1);
    ((((out += "</") += space()) += tag) += space()) += '>';
}

void RandomXml::attributes(bool top) {
    for (std::string_view prefix : {"xmlns:p", "xmlns:q"})
        if (top ? declares : once(20)) attribute(prefix, any(namespaces));
    if (once(15)) attribute("xmlns", any(namespaces));
    if (once(15)) attribute("xml:lang", "en");
    if (once(2)) return;
    const int first = below(int(std::size(names)));
    for (int i = 0, count = once(20) ? int(std::size(names)) : below(4); i < count; ++i)
        attribute(names[size_t(first + i) % std::size(names)], any(values));
}

void RandomXml::attribute(std::string_view name, std::string_view value) {
    const char quote = tidy || once(3) ? '"' : '\'';
    const bool behindValue = out.back() == '"' || out.back() == '\'';
    out += tidy ? " " : behindValue && once(3) ? "" : any(spaces);
    (((out += name) += space()) += '=') += space();
    ((out += quote) += value) += quote;
}

std::string_view RandomXml::name() {
    return names[size_t(below(1 + below(int(std::size(names)))))];
}

std::string_view RandomXml::space() { return tidy || !once(6) ? "" : any(spaces); }

} // namespace test
