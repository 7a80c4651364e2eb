#include <iostream>
#include <voxml.hpp>

// Every node below one. A view makes no objects, so this is the fastest way to read once.
void print(const voxml::view &parent, std::size_t depth) {
    for (const voxml::view &node : parent.items()) {
        if (node.type() == voxml::item_type::comment)
            std::cout << std::string(depth * 2, ' ') << "comment" << *node.value() << '\n';
        if (node.type() != voxml::item_type::element) continue;
        std::cout << std::string(depth * 2, ' ') << node.name();
        for (const voxml::view &attr : node.attributes())
            std::cout << ' ' << attr.name() << "=" << *attr.value();
        std::cout << '\n';
        print(node, depth + 1);
    }
}

int main() {
    const auto page = voxml::document::decode_file("page.xml").value();
    print(page.view(), 0);

    int elements = 0; // At any depth, without recursion:
    for ([[maybe_unused]] const voxml::view &each : page.view().descendants())
        ++elements;
    std::cout << elements << " elements\n";
    return 0;
}
