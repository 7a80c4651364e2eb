#include <iostream>
#include <voxml.hpp>

int main() {
    const auto library = voxml::document::decode_file("library.xml").value();
    for (const voxml::element &book : library.root()->elements("book")) {
        if (book.attribute("lang") != "fr") continue;
        std::cout << book.child("title")->text().value();
        if (auto author = book.child("author")) std::cout << ", by " << author->text().value();
        std::cout << ", " << book.attribute("year").value() << '\n';
    }
    return 0;
}
