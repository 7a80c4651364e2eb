#include <iostream>
#include <voxml.hpp>

// Says at which place of the file a dish is not as it should be.
void check(const voxml::element &dish) {
    const auto price = dish.attribute("price");
    if (price && price->str().find_first_not_of("0123456789") == std::string::npos) return;
    const auto place = dish.location().value();
    std::cout << *place.source << ':' << place.line << ':' << place.column << ": "
              << (price ? "the price is no number" : "no price") << '\n';
}

int main() {
    voxml::decode_options options;
    options.locations = true;
    const auto menu = voxml::document::decode_file("menu.xml", options).value();
    for (const voxml::element &dish : menu.root()->elements("dish"))
        check(dish);
    return 0;
}
