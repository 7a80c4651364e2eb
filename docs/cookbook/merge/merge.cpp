#include <iostream>
#include <voxml.hpp>

int main() {
    auto log = voxml::document::decode_file("first.xml").value();
    const auto other = voxml::document::decode_file("second.xml").value();
    log.edit_root([&](voxml::element &root) {
        root.append(other.root()->elements("entry")).value(); // Shared, not copied.
        root.insert(0, voxml::element::make("merged").value());
    });
    std::cout << log.root()->encode()->view() << '\n';
    std::cout << other.root()->size() << " entries in the other\n";
    return 0;
}
