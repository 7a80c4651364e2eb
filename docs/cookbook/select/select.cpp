#include <iostream>
#include <voxml.hpp>

int main() {
    const auto menu = voxml::document::decode_file("menu.xml").value();
    const auto cheap = voxml::path::make("//dish[@price < 10]/name").value();
    for (const voxml::view &name : menu.select(cheap))
        std::cout << name.text().value() << '\n';

    const auto wrong = voxml::path::make("//dish[@price <");
    if (!wrong) std::cout << wrong.error().to_string() << '\n';
    return 0;
}
