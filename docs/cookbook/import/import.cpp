#include <iostream>
#include <voxml.hpp>

int main() { // Links voxml::import.
    const auto strict = voxml::document::decode_file("letter.xml");
    std::cout << (strict ? "taken" : strict.error().message()) << '\n';

    const auto letter = voxml::import_file("letter.xml");
    if (!letter) return std::cerr << letter.error().to_string() << '\n', 1;
    std::cout << letter->encode()->view() << '\n';
    return 0;
}
