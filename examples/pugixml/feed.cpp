// Prints date and title of every entry of an Atom feed with the prefix that is usual: feed FILE
#include <iostream>
#include <pugixml.hpp>

int main(int argc, char **argv) {
    if (argc != 2) return 2;
    pugi::xml_document feed;
    auto loaded = feed.load_file(argv[1]);
    if (!loaded) {
        std::cerr << argv[1] << ": " << loaded.description() << '\n';
        return 1;
    }

    auto root = feed.child("feed");
    if (!root) return 1;
    for (const auto &entry : root.children("entry")) {
        auto date = entry.child("updated"), title = entry.child("title");
        if (!date || !title) continue;
        std::cout << date.text().get() << ' ' << title.text().get() << '\n';
    }
}
