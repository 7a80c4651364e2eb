// Says of every file whether it is well-formed, or what is wrong, where and how to mend it:
// errors FILE...
#include <iostream>
#include <voxml.hpp>

int main(int argc, char **argv) {
    int refused = 0;
    for (int i = 1; i < argc; ++i) {
        auto document = voxml::document::decode_file(argv[i]);
        if (document) continue;
        const voxml::failure &why = document.error();
        std::cout << why.to_string() << " (byte " << why.byte_offset() << ")\n";
        if (!why.hint().empty()) std::cout << "  hint: " << why.hint() << '\n';
        ++refused;
    }
    std::cout << refused << " of " << argc - 1 << " refused\n";
    return refused != 0;
}
