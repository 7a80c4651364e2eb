// libxml2's tree. It always resolves namespaces.
#include "bench/contestant.hpp"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <memory>

namespace bench {
namespace {

struct FreeTree {
    void operator()(xmlDoc *tree) const { xmlFreeDoc(tree); }
};
using Tree = std::unique_ptr<xmlDoc, FreeTree>;

Tree parsed(const File &file) {
    constexpr int flags = XML_PARSE_HUGE | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
    return Tree(xmlReadMemory(file.bytes.data(), int(file.bytes.size()), nullptr, nullptr, flags));
}

uint64_t decode(const File &file) { return parsed(file) != nullptr; }

uint64_t encode(const File &file) {
    const Tree tree = parsed(file);
    if (!tree) return 0;
    xmlChar *text = nullptr;
    int length = 0;
    xmlDocDumpMemory(tree.get(), &text, &length);
    xmlFree(text);
    return uint64_t(length);
}

void add(Checksum &sum, const xmlChar *text) { sum.add(xmlStrlen(text)); }

void readName(const xmlChar *name, const xmlNs *space, Checksum &sum) {
    if (space) add(sum, space->prefix);
    add(sum, name);
}

void readElement(const xmlNode *element, Checksum &sum) {
    readName(element->name, element->ns, sum);
    for (const xmlNs *space = element->nsDef; space; space = space->next) {
        add(sum, space->prefix);
        add(sum, space->href);
    }
    for (const xmlAttr *attribute = element->properties; attribute; attribute = attribute->next) {
        readName(attribute->name, attribute->ns, sum);
        for (const xmlNode *value = attribute->children; value; value = value->next)
            add(sum, value->content);
    }
}

void readNodes(const xmlNode *first, Checksum &sum) {
    for (const xmlNode *node = first; node; node = node->next) {
        if (node->type == XML_ELEMENT_NODE) {
            readElement(node, sum);
            readNodes(node->children, sum);
        } else {
            add(sum, node->content);
        }
    }
}

uint64_t read(const File &file) {
    const Tree tree = parsed(file);
    if (!tree) return 0;
    Checksum sum;
    readNodes(tree->children, sum);
    return sum.value;
}

uint64_t keep(const File &file) { return parsed(file).release() != nullptr; }

} // namespace

const Contestant libxml2Tree = {.name = "libxml2",
                                .decode = decode,
                                .namespaces = decode,
                                .encode = encode,
                                .read = read,
                                .keep = keep};

} // namespace bench
