#include "tests/xml/codec.hpp"

#include <fstream>
#include <sstream>
#include <vector>

namespace test {
namespace {

Ref<XML_OPTIONS> options(XML_FLAGS flags) {
    Ref options(xmlOptionsCreate());
    xmlOptionsSetFlags(options.edit(), flags);
    return options;
}

std::string afterLast(std::string name, std::string_view separator) {
    return name.substr(name.rfind(separator) + separator.size());
}

std::string escaped(voString *value) {
    std::string plain = take(value), shown;
    for (char c : plain) {
        const auto place = std::string_view("\n\r\t\\").find(c);
        if (place == std::string_view::npos)
            shown += c;
        else
            (shown += '\\') += "nrt\\"[place];
    }
    return shown;
}

struct Plain {
    using Items = XML_ITEMS;
    using Element = XML_ELEMENT;
    static constexpr auto length = xmlItemsLength;
    static constexpr auto typeAt = xmlItemsItemTypeAt;
    static constexpr auto elementAt = xmlItemsItemElementAt;
    static constexpr auto textAt = xmlItemsItemTextValueAt;
    static constexpr auto commentAt = xmlItemsItemCommentAt;
    static constexpr auto cdataAt = xmlItemsItemCdataAt;
    static constexpr auto instructionAt = xmlItemsItemProcessingInstructionAt;
    static constexpr auto children = xmlElementItems;
    static constexpr auto attributesLength = xmlElementAttributesLength;
    static constexpr auto valueAt = xmlElementAttributeTextValueAt;

    static std::string name(Element *el) { return take(xmlElementName(el)); }
    static std::string nameAt(Element *el, int64_t i) {
        return take(xmlElementAttributeNameAt(el, i));
    }
    static void declarations(Element *, const std::string &, std::string &) {}
};

std::string expanded(voString *ns, voString *localName) {
    Ref owned(ns);
    return (ns ? "{" + text(ns) + "}" : "") + take(localName);
}

struct Namespaced {
    using Items = XML_NS_ITEMS;
    using Element = XML_NS_ELEMENT;
    static constexpr auto length = xmlNsItemsLength;
    static constexpr auto typeAt = xmlNsItemsItemTypeAt;
    static constexpr auto elementAt = xmlNsItemsItemElementAt;
    static constexpr auto textAt = xmlNsItemsItemTextValueAt;
    static constexpr auto commentAt = xmlNsItemsItemCommentAt;
    static constexpr auto cdataAt = xmlNsItemsItemCdataAt;
    static constexpr auto instructionAt = xmlNsItemsItemProcessingInstructionAt;
    static constexpr auto children = xmlNsElementItems;
    static constexpr auto attributesLength = xmlNsElementAttributesLength;
    static constexpr auto valueAt = xmlNsElementAttributeTextValueAt;

    static std::string name(Element *el) {
        return expanded(xmlNsElementNamespace(el), xmlNsElementLocalName(el));
    }
    static std::string nameAt(Element *el, int64_t i) {
        return expanded(xmlNsElementAttributeNamespaceAt(el, i),
                        xmlNsElementAttributeLocalNameAt(el, i));
    }
    static void declarations(Element *el, const std::string &indent, std::string &out) {
        Ref map(xmlNsElementNamespaceMap(el));
        for (int64_t i = 0, n = map ? xmlNsNamespaceMapLength(map) : 0; i < n; ++i) {
            Ref mapping(xmlNsNamespaceMapMappingAt(map, i));
            Ref prefix(xmlNsNamespaceMappingPrefix(mapping));
            Ref ns(xmlNsNamespaceMappingNamespace(mapping));
            out += indent + "N " + (prefix ? text(prefix) : "") + "=" + (ns ? text(ns) : "") + "\n";
        }
    }
};

/// The tree as lines, walked with a stack of its own.
template <class Layer> class Dump {
  public:
    std::string run(typename Layer::Items *items) {
        open.push_back({Ref(vo::retained(items)), 0});
        while (!open.empty()) {
            auto &[list, next] = open.back();
            if (next == Layer::length(list))
                open.pop_back();
            else
                node(list, next++);
        }
        return out;
    }

  private:
    void node(typename Layer::Items *list, int64_t i) {
        switch (Layer::typeAt(list, i)) {
        case XML_ITEM_TYPE_ELEMENT:
            return element(Ref(Layer::elementAt(list, i)));
        case XML_ITEM_TYPE_TEXT:
            return line('T', Layer::textAt(list, i));
        case XML_ITEM_TYPE_COMMENT:
            return line('C', xmlCommentValue(Ref(Layer::commentAt(list, i))));
        case XML_ITEM_TYPE_CDATA:
            return line('D', xmlCdataValue(Ref(Layer::cdataAt(list, i))));
        default:
            return line('P', xmlProcessingInstructionValue(Ref(Layer::instructionAt(list, i))));
        }
    }

    void line(char kind, voString *value) { out += indent() + kind + ' ' + escaped(value) + '\n'; }

    void element(typename Layer::Element *el) {
        out += indent() + "E " + Layer::name(el) + "\n";
        open.push_back({Ref(Layer::children(el)), 0});
        Layer::declarations(el, indent(), out);
        for (int64_t i = 0; i < Layer::attributesLength(el); ++i)
            out += indent() + "A " + Layer::nameAt(el, i) + "=" + escaped(Layer::valueAt(el, i)) +
                   "\n";
    }

    std::string indent() const { return std::string((open.size() - 1) * 2, ' '); }

    struct Open {
        Ref<typename Layer::Items> list;
        int64_t next;
    };
    std::vector<Open> open;
    std::string out;
};

} // namespace

Decoded decode(std::string_view bytes, XML_FLAGS flags) {
    Ref result(xmlDocumentDecode(buffer(bytes), options(flags), nullptr));
    Decoded decoded;
    decoded.document = Ref(xmlDecodeResultDocument(result));
    if (decoded.document) return decoded;
    Ref error(xmlDecodeResultError(result));
    decoded.error =
        afterLast(take(xmlDecodeErrorCodeToString(xmlDecodeErrorErrorCode(error))), "ERROR_CODE_");
    if (Ref place(xmlDecodeErrorLocation(error)); place) {
        decoded.offset = voParserLocationOffset(place);
        decoded.line = voParserLocationLine(place);
        decoded.column = voParserLocationColumn(place);
    }
    return decoded;
}

NsDecoded nsDecode(XML_DOCUMENT *document) {
    Ref result(xmlNsDocumentTryDecode(document));
    NsDecoded decoded;
    decoded.document = Ref(xmlNsDecodeResultDocument(result));
    if (decoded.document) return decoded;
    Ref error(xmlNsDecodeResultError(result));
    decoded.error = afterLast(take(xmlNsDecodeErrorCodeToString(xmlNsDecodeErrorErrorCode(error))),
                              "ERROR_CODE_");
    if (Ref place(xmlNsDecodeErrorLocation(error)); place)
        decoded.offset = voParserLocationOffset(place);
    return decoded;
}

std::string encode(XML_DOCUMENT *document, XML_FLAGS flags) {
    Ref encoded(xmlDocumentTryEncode(document, options(flags)));
    return encoded ? bytes(encoded) : "<null>";
}

std::string encodeItemsAsUtf8(XML_DOCUMENT *document) {
    Ref copy(xmlDocumentCreateFrom(document));
    xmlDocumentSetCharset(copy.edit(), VO_CHARSET_UTF_8);
    return encode(copy, XML_FLAG_ENCODE_OMIT_XML_DECLARATION);
}

std::string dump(XML_DOCUMENT *document) {
    return Dump<Plain>().run(Ref(xmlDocumentItems(document)));
}

std::string dump(XML_NS_DOCUMENT *document) {
    return Dump<Namespaced>().run(Ref(xmlNsDocumentItems(document)));
}

void visitItems(XML_DOCUMENT *document, const std::function<void(XML_ITEM *)> &visit) {
    struct Open {
        Ref<XML_ITEMS> list;
        int64_t next;
    };
    std::vector<Open> open;
    open.push_back({Ref(xmlDocumentItems(document)), 0});
    while (!open.empty()) {
        auto &[list, next] = open.back();
        if (next == xmlItemsLength(list)) {
            open.pop_back();
            continue;
        }
        Ref item(xmlItemsItemAt(list, next++));
        visit(item);
        if (Ref el(xmlItemElement(item)); el) open.push_back({Ref(xmlElementItems(el)), 0});
    }
}

std::string readFile(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

} // namespace test
