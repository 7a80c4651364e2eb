// Decodes a menu, changes a copy of it and writes both: the decoded one stays as it was.
#include <iostream>
#include <voxml.hpp>

int main() {
    using voxml::attr, voxml::element;
    auto menu = voxml::document::decode("<?xml version='1.0'?><menu><dish name='Soup'/></menu>");
    if (!menu) return std::cerr << menu.error().to_string() << '\n', 1;

    auto changed = *menu;
    changed.edit_root([](element &root) {
        root.edit_child("dish", [](element &soup) { soup.set_attribute("price", "5").value(); });
        root.append(element::make("dish", attr{"name", "Bread & butter"}, "with salt")).value();
    });
    for (const element &dish : changed.root()->elements("dish"))
        std::cout << dish.attribute("name").value() << '\n'; // Soup, then Bread & butter
    std::cout << menu->encode()->view() << '\n'              // <menu><dish name="Soup"/></menu>
              << changed.encode()->view() << '\n'; // ... <dish name="Bread &amp; butter">with salt
}
