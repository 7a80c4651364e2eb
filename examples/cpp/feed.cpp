// Prints date and title of every entry of an Atom feed, whatever its prefixes: feed FILE
#include <iostream>
#include <voxml.hpp>

int main(int argc, char **argv) {
    if (argc != 2) return 2;
    auto feed = voxml::ns::document::decode_file(argv[1]);
    if (!feed) return std::cerr << feed.error().to_string() << '\n', 1;

    const std::string_view atom = "http://www.w3.org/2005/Atom";
    auto root = feed->root();
    if (!root) return 1;
    for (const auto &entry : root->elements({atom, "entry"})) {
        auto date = entry.child({atom, "updated"}), title = entry.child({atom, "title"});
        if (!date || !title) continue;
        std::cout << date->text().value() << ' ' << title->text().value() << '\n';
    }
}
