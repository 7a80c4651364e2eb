#include "tests/path/peer.hpp"

#include <libxml/xpathInternals.h>

namespace test {
namespace {

std::string_view view(const xmlChar *text) {
    return text ? std::string_view(reinterpret_cast<const char *>(text)) : std::string_view();
}
const xmlChar *chars(const std::string &text) {
    return reinterpret_cast<const xmlChar *>(text.c_str());
}

std::string shown(xmlNode *node) {
    const std::unique_ptr<xmlChar, decltype(xmlFree)> text(xmlXPathCastNodeToString(node), xmlFree);
    const auto ns = [&] { return node->ns ? view(node->ns->href) : std::string_view(); };
    switch (node->type) {
    case XML_ELEMENT_NODE:
        return shownNode("element", view(node->name), ns(), std::string(view(text.get())));
    case XML_ATTRIBUTE_NODE:
        return shownNode("attribute", view(node->name), ns(), std::string(view(text.get())));
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
        return shownNode("text", "", "", std::string(view(text.get())));
    case XML_COMMENT_NODE:
        return shownNode("comment", "", "", std::string(view(text.get())));
    case XML_PI_NODE:
        return shownNode("instruction", "", "", std::string(view(text.get())));
    default:
        return shownNode("document", "", "", std::string(view(text.get())));
    }
}

} // namespace

std::string shownNode(std::string_view kind, std::string_view name, std::string_view ns,
                      std::string text) {
    for (char &ch : text)
        if (ch == '\r' || ch == '\n' || ch == '\t') ch = ' ';
    return std::string(kind) + " {" + std::string(ns) + "}" + std::string(name) + ": " + text;
}

Peer::Peer(std::string_view xml)
    : document(xmlReadMemory(xml.data(), int(xml.size()), nullptr, nullptr,
                             XML_PARSE_NOCDATA | XML_PARSE_NOERROR | XML_PARSE_NOWARNING |
                                 XML_PARSE_HUGE | XML_PARSE_NONET),
               xmlFreeDoc) {
    if (!document) return;
    for (auto *node = reinterpret_cast<xmlNode *>(document.get()); node;) {
        if (node->type == XML_ELEMENT_NODE) all.push_back(node);
        if (node->children && node->type != XML_ENTITY_REF_NODE) {
            node = node->children;
            continue;
        }
        while (node && !node->next)
            node = node->parent;
        if (node) node = node->next;
    }
}

std::optional<std::vector<std::string>>
Peer::select(const std::string &expression, int64_t from,
             const std::vector<std::pair<std::string, std::string>> &bindings) const {
    const std::unique_ptr<xmlXPathContext, decltype(&xmlXPathFreeContext)> context(
        xmlXPathNewContext(document.get()), xmlXPathFreeContext);
    xmlSetStructuredErrorFunc(context.get(), [](void *, xmlError *) {});
    for (const auto &[prefix, ns] : bindings)
        xmlXPathRegisterNs(context.get(), chars(prefix), chars(ns));
    context->node = from < 0 ? reinterpret_cast<xmlNode *>(document.get()) : all[size_t(from)];
    // Without parentheses it may take another way, on which `.//.` leaves out the node itself.
    const std::string whole = "(" + expression + ")";
    const std::unique_ptr<xmlXPathObject, decltype(&xmlXPathFreeObject)> found(
        xmlXPathEval(chars(whole), context.get()), xmlXPathFreeObject);
    if (!found || found->type != XPATH_NODESET) return std::nullopt;
    std::vector<std::string> nodes;
    if (!found->nodesetval) return nodes;
    xmlXPathNodeSetSort(found->nodesetval);
    for (int i = 0; i < found->nodesetval->nodeNr; ++i)
        nodes.push_back(shown(found->nodesetval->nodeTab[i]));
    return nodes;
}

} // namespace test
