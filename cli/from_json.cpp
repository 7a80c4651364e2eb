#include "json.hpp"

#include "charset.hpp"
#include "json_text.hpp"
#include "text.hpp"

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace tool {
namespace {

/// Makes a document of the parser's events. Objects that wait for their ends do so on a stack.
class Builder {
  public:
    FromJson take() {
        Ref made(xmlDocumentCreate());
        xmlDocumentSetVersion(made.edit(), makeString(version));
        xmlDocumentSetCharset(made.edit(), charset);
        xmlDocumentSetStandalone(made.edit(), standalone);
        if (items) xmlDocumentSetItems(made.edit(), items);
        return {std::move(made), {}};
    }

    std::string error; ///< Set when a function has given false.

    // What the parser calls; false ends it.
    bool Null() { return unexpected("null"); }
    bool Int(int) { return unexpected("a number"); }
    bool Uint(unsigned) { return unexpected("a number"); }
    bool Int64(int64_t) { return unexpected("a number"); }
    bool Uint64(uint64_t) { return unexpected("a number"); }
    bool Double(double) { return unexpected("a number"); }
    bool RawNumber(const char *, rapidjson::SizeType, bool) { return unexpected("a number"); }
    bool Bool(bool isSet) {
        if (!isIn(In::document) || key != "standalone") return unexpected("a truth value");
        standalone = isSet;
        return true;
    }
    bool String(const char *text, rapidjson::SizeType length, bool) {
        return string({text, length});
    }
    bool Key(const char *text, rapidjson::SizeType length, bool);
    bool StartObject();
    bool EndObject(rapidjson::SizeType);
    bool StartArray();
    bool EndArray(rapidjson::SizeType) {
        open.pop_back();
        return true;
    }

  private:
    /// What a value stands in.
    enum class In { nothing, document, node, attributes, value, content };

    /// A text, of which one form or both are known.
    struct Text {
        std::string plain, escaped;
        bool hasPlain = false, hasEscaped = false;
    };

    struct Node {
        std::string kind; ///< The key that tells it; empty as long as none has.
        std::string value;
        Text text;
        Ref<XML_ATTRIBUTES> attributes;
        Ref<XML_ITEMS> items;
    };

    bool isIn(In where) const { return !open.empty() && open.back() == where; }

    bool fail(std::string text) {
        error = std::move(text);
        return false;
    }
    bool unexpected(const std::string &what) { return fail(what + " is not expected here"); }

    bool string(std::string_view text);
    bool setting(std::string_view text);
    bool member(std::string_view text);
    bool setText(Text &target, std::string_view text);
    Ref<XML_TEXT> textOf(const Text &text);
    bool addAttribute(const Text &text);
    bool addText(const Text &text);
    bool endNode();
    bool addItem(Node node);
    Ref<XML_ITEMS> &itemsAround() { return nodes.empty() ? items : nodes.back().items; }

    template <class Make> bool add(Make make) {
        Ref<XML_ITEMS> &target = itemsAround();
        if (!target) target = Ref(xmlItemsCreate());
        make(target.edit());
        return true;
    }

    std::vector<In> open;
    std::vector<Node> nodes;
    std::string key;       ///< Of the member that is read,
    std::string attribute; ///< and the name of the attribute.
    Text value;            ///< Of the attribute.

    std::string version = "1.0";
    voCharset charset = VO_CHARSET_UTF_8;
    bool standalone = false;
    Ref<XML_ITEMS> items; ///< Of the document.
};

bool isOneOf(std::string_view key, std::initializer_list<std::string_view> keys) {
    return std::ranges::find(keys, key) != keys.end();
}

bool Builder::Key(const char *text, rapidjson::SizeType length, bool) {
    const std::string_view name(text, length);
    if (isIn(In::attributes)) {
        attribute = name;
        if (!xmlValueNameOk(makeString(name))) return fail(jsonString(name) + " is no XML name");
        Ref<XML_ATTRIBUTES> &known = nodes.back().attributes;
        if (known && xmlAttributesHasAttribute(known, makeString(name)))
            return fail("the attribute is there already");
        return true;
    }
    key = name;
    const bool isKnown =
        isIn(In::document) ? isOneOf(name, {"version", "encoding", "standalone", "content"})
        : isIn(In::value)  ? isOneOf(name, {"text", "escaped"})
                           : isOneOf(name, {"element", "attributes", "content", "comment", "cdata",
                                            "instruction", "text", "escaped"});
    return isKnown || fail("unknown key " + jsonString(name));
}

bool Builder::StartObject() {
    if (open.empty()) {
        open.push_back(In::document);
    } else if (isIn(In::content)) {
        open.push_back(In::node);
        nodes.emplace_back();
    } else if (isIn(In::node) && key == "attributes") {
        open.push_back(In::attributes);
    } else if (isIn(In::attributes)) {
        open.push_back(In::value);
        value = {};
    } else {
        return unexpected("an object");
    }
    return true;
}

bool Builder::EndObject(rapidjson::SizeType) {
    const In ended = open.back();
    open.pop_back();
    if (ended == In::value) return addAttribute(value);
    return ended != In::node || endNode();
}

bool Builder::StartArray() {
    if ((!isIn(In::document) && !isIn(In::node)) || key != "content") return unexpected("a list");
    open.push_back(In::content);
    return true;
}

bool Builder::string(std::string_view text) {
    if (open.empty()) return unexpected("a text");
    switch (open.back()) {
    case In::document:
        return setting(text);
    case In::node:
        return member(text);
    case In::attributes:
        return addAttribute({std::string(text), {}, true, false});
    case In::value:
        return setText(value, text);
    default:
        return addText({std::string(text), {}, true, false});
    }
}

bool Builder::setting(std::string_view text) {
    if (key == "version") {
        version = text;
        return xmlValueVersionNumOk(makeString(text)) || fail(jsonString(text) + " is no version");
    }
    if (key != "encoding") return unexpected("a text");
    charset = charsetNamed(text);
    return charset >= 0 || fail("unknown character set " + jsonString(text));
}

bool Builder::setText(Text &target, std::string_view text) {
    const bool isEscaped = key == "escaped";
    (isEscaped ? target.escaped : target.plain) = text;
    (isEscaped ? target.hasEscaped : target.hasPlain) = true;
    return !isEscaped || xmlValueTextOk(makeString(text)) ||
           fail("there is a \"<\", or an \"&\" without a reference");
}

/// A member of a node that is a text.
bool Builder::member(std::string_view text) {
    Node &node = nodes.back();
    if (key == "text" || key == "escaped") return setText(node.text, text);
    if (key == "attributes" || key == "content") return unexpected("a text");
    if (!node.kind.empty()) return fail("a node is of one kind only");
    node.kind = key;
    node.value = text;
    Ref string = makeString(text);
    const bool isFine = key == "element"   ? xmlValueNameOk(string)
                        : key == "comment" ? xmlValueCommentOk(string)
                        : key == "cdata"   ? xmlValueCdataOk(string)
                                           : xmlValueProcessingInstructionValueOk(string);
    return isFine || fail(key == "element" ? jsonString(text) + " is no XML name"
                                           : "no " + key + " can hold this text");
}

/// Whether a text stands for these characters; those that UTF-8 lacks are read as U+FFFD.
bool standsFor(XML_TEXT *text, Chars plain) {
    constexpr uint32_t replacement = 0xFFFD;
    Ref resolved(xmlTextTryUnescape(text));
    if (!resolved) return false;
    const auto isSame = [](uint32_t ch, uint32_t wanted) {
        const bool isSurrogate = ch >= 0xD800 && ch < 0xE000;
        return (isSurrogate ? replacement : ch) == wanted;
    };
    return std::ranges::equal(chars(resolved), plain, isSame);
}

Ref<XML_TEXT> Builder::textOf(const Text &text) {
    Ref plain = makeString(text.plain);
    if (text.hasEscaped) {
        Ref escaped(xmlTextCreateValue(makeString(text.escaped)));
        if (!text.hasPlain || standsFor(escaped, chars(plain))) return escaped;
    }
    return Ref(xmlTextCreateEscape(plain));
}

bool Builder::addAttribute(const Text &text) {
    if (!text.hasPlain && !text.hasEscaped) return fail("the attribute has no value");
    Ref<XML_ATTRIBUTES> &target = nodes.back().attributes;
    if (!target) target = Ref(xmlAttributesCreate());
    xmlAttributesAppendAttributeNameText(target.edit(), makeString(attribute), textOf(text));
    return true;
}

bool Builder::addText(const Text &text) {
    return add([&](XML_ITEMS **target) { xmlItemsAppendItemText(target, textOf(text)); });
}

bool Builder::endNode() {
    Node node = std::move(nodes.back());
    nodes.pop_back();
    const bool isText = node.text.hasPlain || node.text.hasEscaped;
    if (isText == !node.kind.empty())
        return fail("a node has one of element, comment, cdata, instruction, text and escaped");
    if (node.kind != "element" && (node.attributes || node.items))
        return fail("only an element has attributes and content");
    return isText ? addText(node.text) : addItem(std::move(node));
}

bool Builder::addItem(Node node) {
    Ref text = makeString(node.value);
    return add([&](XML_ITEMS **target) {
        if (node.kind == "comment")
            return xmlItemsAppendItemComment(target, Ref(xmlCommentCreate(text)));
        if (node.kind == "cdata") return xmlItemsAppendItemCdata(target, Ref(xmlCdataCreate(text)));
        if (node.kind == "instruction")
            return xmlItemsAppendItemProcessingInstruction(
                target, Ref(xmlProcessingInstructionCreate(text)));
        Ref element(xmlElementCreate(text));
        if (node.attributes) xmlElementSetAttributes(element.edit(), node.attributes);
        if (node.items) xmlElementSetItems(element.edit(), node.items);
        xmlItemsAppendItemElement(target, element);
    });
}

/// Where the string begins that ends before `offset`; elsewhere the byte before that.
size_t beginningOfToken(std::string_view json, size_t offset) {
    size_t at = std::max<size_t>(offset, 1) - 1;
    if (json[at] != '"') return at;
    const auto isEscaped = [&](size_t quote) {
        size_t backslashes = 0;
        while (json[quote - 1 - backslashes] == '\\')
            ++backslashes;
        return backslashes % 2 == 1;
    };
    do
        --at;
    while (json[at] != '"' || isEscaped(at));
    return at;
}

/// What the parser says, in the form of other messages.
std::string messageOf(rapidjson::ParseErrorCode code) {
    std::string text = rapidjson::GetParseError_En(code);
    if (text.ends_with('.')) text.pop_back();
    if (text.starts_with("The ") || text.starts_with("Invalid")) text[0] |= 0x20;
    return text;
}

} // namespace

FromJson fromJson(std::string_view json) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    const size_t skipped = json.starts_with(mark) ? mark.size() : 0;
    const std::string_view text = json.substr(skipped);
    // Iterative, so that depth costs memory and never the call stack.
    constexpr unsigned flags = rapidjson::kParseIterativeFlag |
                               rapidjson::kParseValidateEncodingFlag |
                               rapidjson::kParseNumbersAsStringsFlag;
    rapidjson::MemoryStream stream(text.data(), text.size());
    Builder builder;
    const rapidjson::ParseResult parsed = rapidjson::Reader().Parse<flags>(stream, builder);
    if (parsed && stream.Tell() == text.size()) return builder.take();
    if (parsed) return {{}, "there is something behind the document", skipped + stream.Tell()};
    if (parsed.Code() == rapidjson::kParseErrorTermination)
        return {{}, builder.error, skipped + beginningOfToken(text, parsed.Offset())};
    return {{}, messageOf(parsed.Code()), skipped + parsed.Offset()};
}

} // namespace tool
