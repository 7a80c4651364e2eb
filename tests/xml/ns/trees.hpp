// Documents as text. Plain ones are XML without a declaration. Those with namespaces are written
//
//     ({urn:x}a +p=urn:x +=urn:y @{urn:x}c=1 @d=2 'text' !comment ?pi #cdata (b))
//
// An element in parentheses holds its name, its namespace map, its attributes and its content.
#pragma once

#include "tests/xml/ns/namespaces.hpp"

namespace test {

inline Ref<XML_OPTIONS> options(XML_FLAGS flags) {
    Ref made(xmlOptionsCreate());
    xmlOptionsSetFlags(made.edit(), flags);
    return made;
}

inline Ref<XML_DOCUMENT> plain(const std::string &xml) {
    Ref result(xmlDocumentDecode(buffer("<?xml version=\"1.0\"?>" + xml),
                                 options(XML_FLAG_DECODE_LOCATION), nullptr));
    EXPECT_TRUE(xmlDecodeResultHasDocument(result)) << xml;
    return Ref(xmlDecodeResultDocument(result));
}

inline std::string text(XML_DOCUMENT *document) {
    return bytes(
        Ref(xmlDocumentTryEncode(document, options(XML_FLAG_ENCODE_OMIT_XML_DECLARATION))));
}

/// Reads the notation.
class TreeReader {
  public:
    explicit TreeReader(std::string_view notation) : rest(notation) {}

    Ref<XML_NS_DOCUMENT> document() {
        while (skipBlanks())
            node();
        Ref made(xmlNsDocumentCreate());
        xmlNsDocumentSetItems(made.edit(), top);
        return made;
    }

  private:
    bool skipBlanks() {
        rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
        return !rest.empty();
    }
    std::string_view until(std::string_view ends) {
        const std::string_view word = rest.substr(0, rest.find_first_of(ends));
        rest.remove_prefix(word.size());
        return word;
    }
    struct Name {
        Ref<voString> local, ns;
    };
    static Name name(std::string_view text) {
        const size_t end = text.starts_with('{') ? text.find('}') : text.npos;
        if (end == text.npos) return {str(text), {}};
        return {str(text.substr(end + 1)), str(text.substr(1, end - 1))};
    }

    void node() {
        const char kind = rest.front();
        rest.remove_prefix(1);
        if (kind == '(') return begin();
        if (kind == ')') return end();
        const std::string_view word = until(kind == '\'' ? "'" : " )");
        if (kind == '+') return declare(word);
        if (kind == '@') return attribute(word);
        if (kind == '\'') rest.remove_prefix(1);
        append(item(kind, str(word)));
    }
    static Ref<XML_NS_ITEM> item(char kind, voString *value) {
        switch (kind) {
        case '!':
            return Ref(xmlNsItemCreateComment(Ref(xmlCommentCreate(value))));
        case '?':
            return Ref(
                xmlNsItemCreateProcessingInstruction(Ref(xmlProcessingInstructionCreate(value))));
        case '#':
            return Ref(xmlNsItemCreateCdata(Ref(xmlCdataCreate(value))));
        default:
            return Ref(xmlNsItemCreateTextValue(value));
        }
    }
    void begin() {
        auto [local, ns] = name(until(" )"));
        open.emplace_back(xmlNsElementCreate(local, ns));
    }
    void end() {
        Ref made = std::move(open.back());
        open.pop_back();
        append(Ref(xmlNsItemCreateElement(made)));
    }
    void append(XML_NS_ITEM *item) {
        if (open.empty())
            xmlNsItemsAppendItem(top.edit(), item);
        else
            xmlNsElementAppendItem(open.back().edit(), item);
    }
    void declare(std::string_view declaration) {
        Ref<XML_NS_ELEMENT> &el = open.back();
        Ref map(xmlNsElementNamespaceMap(el));
        if (!map) map = Ref(xmlNsNamespaceMapCreate());
        xmlNsNamespaceMapAppendMapping(map.edit(), mapping(declaration));
        xmlNsElementSetNamespaceMap(el.edit(), map);
    }
    void attribute(std::string_view text) {
        const size_t equals = text.rfind('=');
        auto [local, ns] = name(text.substr(0, equals));
        xmlNsElementAppendAttributeNameTextValue(open.back().edit(), local, ns,
                                                 str(text.substr(equals + 1)));
    }

    std::string_view rest;
    std::vector<Ref<XML_NS_ELEMENT>> open;
    Ref<XML_NS_ITEMS> top{xmlNsItemsCreate()};
};

inline Ref<XML_NS_DOCUMENT> tree(std::string_view notation) {
    return TreeReader(notation).document();
}

/// Writes the notation, with or without namespace maps.
class TreeWriter {
  public:
    explicit TreeWriter(bool withMaps) : maps(withMaps) {}

    std::string write(XML_NS_ITEMS *items) const {
        std::string all;
        for (int64_t i = 0; i < xmlNsItemsLength(items); ++i)
            all += (i ? " " : "") + item(Ref(xmlNsItemsItemAt(items, i)));
        return all;
    }

  private:
    static std::string name(voString *optionalNs, voString *local) {
        Ref ns(optionalNs);
        return (ns ? "{" + text(ns) + "}" : "") + take(local);
    }
    std::string item(XML_NS_ITEM *item) const {
        switch (xmlNsItemType(item)) {
        case XML_ITEM_TYPE_ELEMENT:
            return element(Ref(xmlNsItemElement(item)));
        case XML_ITEM_TYPE_PROCESSING_INSTRUCTION:
            return "?" +
                   take(xmlProcessingInstructionValue(Ref(xmlNsItemProcessingInstruction(item))));
        case XML_ITEM_TYPE_COMMENT:
            return "!" + take(xmlCommentValue(Ref(xmlNsItemComment(item))));
        case XML_ITEM_TYPE_CDATA:
            return "#" + take(xmlCdataValue(Ref(xmlNsItemCdata(item))));
        default:
            return "'" + take(xmlNsItemTextValue(item)) + "'";
        }
    }
    std::string element(XML_NS_ELEMENT *el) const {
        std::string all = "(" + name(xmlNsElementNamespace(el), xmlNsElementLocalName(el));
        if (Ref map(xmlNsElementNamespaceMap(el)); map && maps)
            for (int64_t i = 0; i < xmlNsNamespaceMapLength(map); ++i)
                all += " +" + take(xmlNsNamespaceMapMappingAt(map, i));
        for (int64_t i = 0; i < xmlNsElementAttributesLength(el); ++i)
            all += " @" +
                   name(xmlNsElementAttributeNamespaceAt(el, i),
                        xmlNsElementAttributeLocalNameAt(el, i)) +
                   "=" + take(xmlNsElementAttributeTextValueAt(el, i));
        const std::string content = write(Ref(xmlNsElementItems(el)));
        return all + (content.empty() ? "" : " ") + content + ")";
    }

    bool maps;
};

inline std::string text(XML_NS_DOCUMENT *document, bool withMaps = true) {
    return TreeWriter(withMaps).write(Ref(xmlNsDocumentItems(document)));
}

/// The decoded document, or "code line:column" for an error.
inline std::string text(XML_NS_DECODE_RESULT *result) {
    Ref error(xmlNsDecodeResultError(result));
    if (!error) return text(Ref(xmlNsDecodeResultDocument(result)));
    Ref location(xmlNsDecodeErrorLocation(error));
    return take(xmlNsDecodeErrorCodeToString(xmlNsDecodeErrorErrorCode(error))) +
           (location ? " " + std::to_string(voParserLocationLine(location)) + ":" +
                           std::to_string(voParserLocationColumn(location))
                     : "");
}

} // namespace test
