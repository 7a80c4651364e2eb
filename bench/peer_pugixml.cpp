// pugixml, with the flags for everything that this library does too.
#include "bench/contestant.hpp"

#include <pugixml.hpp>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace bench {
namespace {

/// White space between elements is content, as it is for this library; document types are refused.
constexpr unsigned flags = (pugi::parse_full & ~pugi::parse_doctype) | pugi::parse_ws_pcdata;

bool load(pugi::xml_document &document, const File &file) {
    return bool(document.load_buffer(file.bytes.data(), file.bytes.size(), flags));
}

uint64_t decode(const File &file) {
    pugi::xml_document document;
    return load(document, file);
}

struct StringWriter : pugi::xml_writer {
    std::string text;

    void write(const void *data, size_t size) override {
        text.append(static_cast<const char *>(data), size);
    }
};

uint64_t save(const pugi::xml_document &document) {
    StringWriter writer;
    document.save(writer, "", pugi::format_raw, pugi::encoding_utf8);
    return writer.text.size();
}

uint64_t encode(const File &file) {
    pugi::xml_document document;
    return load(document, file) ? save(document) : 0;
}

void add(Checksum &sum, const char *text) { sum.add(int64_t(std::strlen(text))); }

void readNode(pugi::xml_node node, Checksum &sum) {
    add(sum, node.name());
    add(sum, node.value());
    for (auto attribute = node.first_attribute(); attribute;
         attribute = attribute.next_attribute()) {
        add(sum, attribute.name());
        add(sum, attribute.value());
    }
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling())
        readNode(child, sum);
}

uint64_t read(const File &file) {
    pugi::xml_document document;
    if (!load(document, file)) return 0;
    Checksum sum;
    readNode(document, sum);
    return sum.value;
}

pugi::xml_node firstElement(pugi::xml_node node) {
    return node.find_child([](pugi::xml_node child) { return child.type() == pugi::node_element; });
}

/// The middle one of the child elements that have element children, or else the first one.
pugi::xml_node wayDown(pugi::xml_node node) {
    std::vector<pugi::xml_node> parents;
    for (const pugi::xml_node child : node.children())
        if (child.type() == pugi::node_element && firstElement(child)) parents.push_back(child);
    return parents.empty() ? firstElement(node) : parents[parents.size() / 2];
}

uint64_t change(const File &file) {
    pugi::xml_document document;
    if (!load(document, file)) return 0;
    pugi::xml_node deepest;
    for (pugi::xml_node next = wayDown(document); next; next = wayDown(next))
        deepest = next;
    if (deepest.first_attribute())
        deepest.first_attribute().set_value("changed");
    else
        deepest.append_attribute("state").set_value("changed");
    return save(document);
}

uint64_t keep(const File &file) {
    auto document = std::make_unique<pugi::xml_document>();
    const bool loaded = load(*document, file);
    return document.release() && loaded;
}

} // namespace

const Contestant pugixmlTree = {.name = "pugixml",
                                .decode = decode,
                                .encode = encode,
                                .read = read,
                                .change = change,
                                .keep = keep};

} // namespace bench
