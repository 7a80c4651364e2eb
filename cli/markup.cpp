#include "markup.hpp"

#include <algorithm>

namespace tool {
namespace {

size_t behind(std::string_view text, std::string_view token, size_t from) {
    const size_t at = text.find(token, from);
    return at == text.npos ? text.size() : at + token.size();
}

size_t endOfMarkup(std::string_view text, size_t at) {
    const std::string_view markup = text.substr(at);
    if (markup.starts_with("<!--")) return behind(text, "-->", at + 4);
    if (markup.starts_with("<![CDATA[")) return behind(text, "]]>", at);
    if (markup.starts_with("<?")) return behind(text, "?>", at);
    return endOfTag(text, at);
}

/// Whether markup that ends at `end` opens an element, which it does not as <a/>.
bool opensElement(std::string_view text, size_t at, size_t end) {
    if (at + 1 == text.size() || text[at + 1] == '!' || text[at + 1] == '?') return false;
    size_t last = end - 2;
    while (isXmlSpace(text[last]))
        --last;
    return text[last] != '/';
}

bool beginsCharacter(char ch) { return (static_cast<unsigned char>(ch) & 0xC0) != 0x80; }

} // namespace

size_t byteOf(std::string_view text, size_t character) {
    size_t at = 0;
    for (; at < text.size(); ++at)
        if (beginsCharacter(text[at]) && character-- == 0) break;
    return at;
}

size_t characterOf(std::string_view text, size_t byte) {
    return static_cast<size_t>(std::ranges::count_if(text.substr(0, byte), beginsCharacter));
}

bool isQuote(char ch) { return ch == '\'' || ch == '"'; }

bool isXmlSpace(char ch) { return ch == ' ' || ch == '\t' || ch == '\n' || ch == '\r'; }

size_t skipXmlSpace(std::string_view text, size_t at) {
    while (at < text.size() && isXmlSpace(text[at]))
        ++at;
    return at;
}

bool isDeclaration(std::string_view text) {
    constexpr std::string_view opening = "<?xml";
    const std::string_view start = text.substr(skipXmlSpace(text, 0));
    return start.size() > opening.size() && start.starts_with(opening) &&
           isXmlSpace(start[opening.size()]);
}

std::string_view declaredEncoding(std::string_view text) {
    constexpr std::string_view label = "encoding";
    const std::string_view head = text.substr(0, text.find("?>"));
    size_t name = isDeclaration(head) ? head.find(label) : head.npos;
    while (name != head.npos && !isXmlSpace(head[name - 1]) && !isQuote(head[name - 1]))
        name = head.find(label, name + 1); // not at the end of another name
    const size_t quote = head.find_first_of("'\"", name);
    const size_t end = quote == head.npos ? quote : head.find(head[quote], quote + 1);
    return end == head.npos ? std::string_view() : head.substr(quote + 1, end - quote - 1);
}

std::string_view tagName(std::string_view text, size_t tag) {
    size_t begin = tag + 1;
    if (begin < text.size() && text[begin] == '/') ++begin;
    begin = skipXmlSpace(text, begin);
    const size_t end = std::min(text.find_first_of(" \t\r\n/>", begin), text.size());
    return text.substr(begin, end - begin);
}

size_t endOfTag(std::string_view text, size_t tag) {
    for (size_t at = tag; (at = text.find_first_of("'\">", at)) != text.npos; ++at) {
        if (text[at] == '>') return at + 1;
        at = std::min(text.find(text[at], at + 1), text.size());
    }
    return text.size();
}

Surroundings surroundingsOf(std::string_view text, size_t at) {
    Surroundings found;
    for (size_t tag = 0; (tag = text.find('<', tag)) < at;) {
        const size_t end = endOfMarkup(text, tag);
        if (end > at) {
            found.markup = tag;
            break;
        }
        if (text[tag + 1] == '/') {
            if (!found.open.empty()) found.open.pop_back();
        } else if (opensElement(text, tag, end)) {
            found.open.push_back(tag);
        }
        found.textBegin = tag = end;
    }
    return found;
}

std::string_view referenceAt(std::string_view text, size_t at) {
    const size_t end = text.find_first_of("; \t\r\n<>&'\"", at + 1);
    const bool isWhole = end != text.npos && text[end] == ';';
    return text.substr(at, isWhole ? end - at + 1 : 1);
}

} // namespace tool
