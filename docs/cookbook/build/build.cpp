#include <iostream>
#include <vector>
#include <voxml.hpp>

int main() {
    using voxml::attr, voxml::comment, voxml::element;
    struct row {
        const char *name, *price;
    };
    const std::vector<row> rows = {{"Soup", "4"}, {"Fish & chips", "9"}};

    std::vector<element> dishes;
    for (const row &each : rows)
        dishes.push_back(element::make("dish", attr{"price", each.price}, each.name).value());

    const auto menu = element::make("menu", attr{"day", "Monday"}, comment::make(" today "), dishes,
                                    element::make("end"));
    if (!menu) return std::cerr << menu.error().to_string() << '\n', 1;
    std::cout << voxml::document(*menu).encode()->view() << '\n';
    return 0;
}
