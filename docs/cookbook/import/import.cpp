#include <iostream>
#include <voxml.hpp>

int main() { // Links voxml::import.
    int error = 0;
    const voxml::buffer bytes(voxml::adopt, voFileTryRead("letter.xml", &error));
    const auto strict = voxml::document::decode(bytes);
    std::cout << (strict ? "taken" : strict.error().message()) << '\n';

    const auto letter = voxml::import_document(bytes);
    if (!letter) return std::cerr << letter.error().to_string() << '\n', 1;
    std::cout << letter->encode()->view() << '\n';
    return 0;
}
