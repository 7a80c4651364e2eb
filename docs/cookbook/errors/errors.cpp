#include <iostream>
#include <voxml.hpp>

void tell(const char *path) {
    auto menu = voxml::document::decode_file(path);
    if (menu) {
        std::cout << path << ": all is well\n";
        return;
    }
    const voxml::failure &why = menu.error();
    std::cout << why.to_string() << '\n';
    if (why.byte_offset() >= 0) std::cout << "  byte " << why.byte_offset() << '\n';
    if (!why.hint().empty()) std::cout << "  hint: " << why.hint() << '\n';
}

int main() {
    tell("menu.xml");
    tell("nowhere.xml");
    return 0;
}
