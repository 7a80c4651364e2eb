#include <iostream>
#include <vector>
#include <voxml.hpp>

int main() {
    using voxml::document, voxml::element;
    document doc(element::make("page").value());
    std::vector<document> versions; // Each shares with the next all that the two have in common.
    for (const char *word : {"One", "Two", "Three"}) {
        versions.push_back(doc);
        doc.edit_root([&](element &page) { page.append(element::make("p", word)).value(); });
    }
    std::cout << doc.root()->encode()->view() << '\n';
    doc = versions.back(); // Undo.
    std::cout << doc.root()->encode()->view() << '\n';

    const auto first = [](const document &of) { return of.root()->child("p").value(); };
    std::cout << (first(versions[1]) == first(versions[2]) ? "one and the same" : "two") << '\n';
    return 0;
}
