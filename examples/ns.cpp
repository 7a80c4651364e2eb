// Reads a document with prefixes, asks for an attribute by namespace and name, adds an element in
// a namespace of its own and writes the document back.
#include <iostream>
#include <voxml.hpp>

int main() {
    auto doc = voxml::ns::document::decode("<?xml version='1.0'?>"
                                           "<entry xmlns='http://www.w3.org/2005/Atom'"
                                           " xmlns:r='urn:example:reading' r:minutes='12'/>");
    if (!doc) return std::cerr << doc.error().to_string() << '\n', 1;

    doc->edit_root([](voxml::ns::element &entry) {
        if (auto minutes = entry.attribute({"urn:example:reading", "minutes"}))
            std::cout << *minutes << '\n';
        entry.append(voxml::ns::element::make({"urn:example:progress", "done"})).value();
    });
    std::cout << doc->encode()->view() << '\n';
}
