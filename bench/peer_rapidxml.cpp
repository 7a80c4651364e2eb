// RapidXML. It drops white space between elements whatever the flags, so it makes fewer nodes than
// the others.
#include "bench/contestant.hpp"

#include <rapidxml/rapidxml.hpp>
#include <rapidxml/rapidxml_print.hpp>

#include <cstring>
#include <iterator>
#include <memory>
#include <string>

namespace bench {
namespace {

using Tree = std::unique_ptr<rapidxml::xml_document<>>;

/// The tree of a file, null when it is refused. The parser writes into the text that it is given,
/// so it gets a copy, which lives as long as the tree.
Tree parsed(const File &file) {
    auto tree = std::make_unique<rapidxml::xml_document<>>();
    try {
        char *text = tree->allocate_string(file.bytes.c_str(), file.bytes.size() + 1);
        tree->parse<rapidxml::parse_full>(text);
    } catch (const rapidxml::parse_error &) {
        return nullptr;
    }
    return tree;
}

uint64_t decode(const File &file) { return parsed(file) != nullptr; }

uint64_t encode(const File &file) {
    const Tree tree = parsed(file);
    if (!tree) return 0;
    std::string text;
    rapidxml::print(std::back_inserter(text), *tree, rapidxml::print_no_indenting);
    return text.size();
}

void readNode(const rapidxml::xml_node<> &node, Checksum &sum) {
    sum.add(int64_t(node.name_size()));
    sum.add(int64_t(node.value_size()));
    for (auto *attribute = node.first_attribute(); attribute;
         attribute = attribute->next_attribute()) {
        sum.add(int64_t(attribute->name_size()));
        sum.add(int64_t(attribute->value_size()));
    }
    for (auto *child = node.first_node(); child; child = child->next_sibling())
        readNode(*child, sum);
}

uint64_t read(const File &file) {
    const Tree tree = parsed(file);
    if (!tree) return 0;
    Checksum sum;
    readNode(*tree, sum);
    return sum.value;
}

uint64_t keep(const File &file) { return parsed(file).release() != nullptr; }

} // namespace

const Contestant rapidxmlTree = {
    .name = "rapidxml", .decode = decode, .encode = encode, .read = read, .keep = keep};

} // namespace bench
