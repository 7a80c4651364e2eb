// Says of every file whether it is well-formed, or what is wrong and where: errors FILE...
#include <iostream>
#include <pugixml.hpp>

int main(int argc, char **argv) {
    int refused = 0;
    for (int i = 1; i < argc; ++i) {
        pugi::xml_document document;
        auto loaded = document.load_file(argv[i]);
        if (loaded) continue;
        std::cout << argv[i] << ": error: " << loaded.description() << " (byte " << loaded.offset
                  << ")\n";
        ++refused;
    }
    std::cout << refused << " of " << argc - 1 << " refused\n";
    return refused != 0;
}
