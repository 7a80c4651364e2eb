#include "tree.hpp"

#include "charset.hpp"
#include "report.hpp"
#include "terminal.hpp"
#include "walk.hpp"

#include <algorithm>

#include <unistd.h>

namespace tool {
namespace {

std::string shownString(voString *taken) {
    Ref string(taken);
    return shown(chars(string));
}

std::string nameOf(XML_ELEMENT *element) { return shownString(xmlElementName(element)); }
std::string nameOf(XML_ATTRIBUTE *attr) { return shownString(xmlAttributeName(attr)); }

std::string expandedName(voString *optionalNs, voString *localName) {
    const std::string space = optionalNs ? "{" + shownString(optionalNs) + "}" : "";
    return space + shownString(localName);
}

std::string nameOf(XML_NS_ELEMENT *element) {
    return expandedName(xmlNsElementNamespace(element), xmlNsElementLocalName(element));
}

std::string nameOf(XML_NS_ATTRIBUTE *attr) {
    return expandedName(xmlNsAttributeNamespace(attr), xmlNsAttributeLocalName(attr));
}

/// Prints nodes as they are visited.
class Printer {
  public:
    explicit Printer(bool locations) : showLocations(locations), painter(STDOUT_FILENO) {}

    void heading(voString *version, voCharset charset, int standalone) {
        const std::string detail = shownString(version) + " " + charsetName(charset);
        line(0, "document", detail + (standalone ? " standalone" : ""), nullptr);
    }

    void node(XML_PROCESSING_INSTRUCTION *pi, size_t depth) {
        value(depth, "instruction", xmlProcessingInstructionValue(pi),
              xmlProcessingInstructionLocation(pi));
    }
    void node(XML_COMMENT *comment, size_t depth) {
        value(depth, "comment", xmlCommentValue(comment), xmlCommentLocation(comment));
    }
    void node(XML_TEXT *text, size_t depth) {
        value(depth, "text", xmlTextValue(text), xmlTextLocation(text));
    }
    void node(XML_CDATA *cdata, size_t depth) {
        value(depth, "cdata", xmlCdataValue(cdata), xmlCdataLocation(cdata));
    }
    void node(XML_ELEMENT *element, size_t depth) { elementNode<Plain>(element, depth); }
    void node(XML_NS_ELEMENT *element, size_t depth) {
        elementNode<Namespaced>(element, depth);
        if (Ref map(xmlNsElementNamespaceMap(element)); map) declarations(map, depth + 1);
    }

    void flush() {
        writeOut(pending);
        pending.clear();
    }

  private:
    template <class Layer> void elementNode(typename Layer::Element *element, size_t depth) {
        line(depth, "element", painter.bold(nameOf(element)), Layer::elementLocation(element));
        for (int64_t i = 0; i < Layer::attributesLength(element); ++i) {
            Ref attr(Layer::attributeAt(element, i));
            const std::string text = quoted(Layer::attributeValue(attr));
            line(depth + 1, "attribute", nameOf(attr) + "=" + text, Layer::attributeLocation(attr));
        }
    }

    void declarations(XML_NS_NAMESPACE_MAP *map, size_t depth) {
        for (int64_t i = 0; i < xmlNsNamespaceMapLength(map); ++i) {
            Ref mapping(xmlNsNamespaceMapMappingAt(map, i));
            Ref prefix(xmlNsNamespaceMappingPrefix(mapping));
            Ref ns(xmlNsNamespaceMappingNamespace(mapping));
            const std::string name = prefix ? "xmlns:" + shown(chars(prefix)) : "xmlns";
            const std::string text = ns ? shown(chars(ns)) : "";
            line(depth, "declaration", name + "=" + painter.green("\"" + text + "\""), nullptr);
        }
    }

    void value(size_t depth, std::string_view kind, voString *taken, voParserLocation *location) {
        line(depth, kind, quoted(taken), location);
    }

    std::string quoted(voString *taken) const {
        return painter.green("\"" + shownString(taken) + "\"");
    }

    /// Below a certain depth the lines tell theirs instead of being indented further, since
    /// otherwise the output would grow with its square.
    void indent(size_t depth) {
        constexpr size_t deepest = 40;
        pending.append(2 * std::min(depth, deepest), ' ');
        if (depth > deepest) pending += painter.dim("[" + std::to_string(depth) + "]") + " ";
    }

    void line(size_t depth, std::string_view kind, const std::string &detail,
              voParserLocation *taken) {
        constexpr size_t enough = 1 << 16;
        Ref location(taken);
        indent(depth);
        pending += painter.cyan(kind) + " " + detail;
        if (const auto place = placeOf(location); place && showLocations)
            pending += painter.dim("  " + std::to_string(place->line) + ":" +
                                   std::to_string(place->column));
        pending += '\n';
        if (pending.size() >= enough) flush();
    }

    bool showLocations;
    Painter painter;
    std::string pending;
};

} // namespace

void printTree(const Decoded &decoded, TreeWish wish) {
    Printer printer(wish.locations);
    XML_DOCUMENT *document = decoded.document;
    printer.heading(xmlDocumentVersion(document), xmlDocumentCharset(document),
                    xmlDocumentStandalone(document));
    if (wish.namespaces)
        walk<Namespaced>(Ref(xmlNsDocumentItems(decoded.nsDocument)), printer);
    else
        walk<Plain>(Ref(xmlDocumentItems(document)), printer);
    printer.flush();
}

} // namespace tool
