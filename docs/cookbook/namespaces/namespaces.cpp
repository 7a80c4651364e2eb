#include <iostream>
#include <voxml.hpp>

int main() {
    constexpr const char *atom = "http://www.w3.org/2005/Atom", *reading = "urn:example:reading";
    const auto feed = voxml::ns::document::decode_file("feed.xml").value();
    for (const voxml::ns::element &entry : feed.root()->elements({atom, "entry"}))
        std::cout << entry.child({atom, "title"})->text().value() << ": "
                  << entry.attribute({reading, "minutes"}).value() << " minutes\n";
    return 0;
}
