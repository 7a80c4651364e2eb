#include <iostream>
#include <voxml.hpp>

void print(const voxml::element &el) {
    const voxml::text text = el.items()[0].text().value();
    std::cout << "escaped: " << text.escaped_value() << '\n';
    if (auto plain = text.value())
        std::cout << "plain:   " << *plain << '\n';
    else
        std::cout << "plain:   none, since it refers to an entity that is not predefined\n";
}

int main() {
    auto note = voxml::document::decode_file("note.xml").value();
    print(*note.root());

    auto root = *note.root();
    root.set_text("1 < 2 & 3 > 2").value(); // Plain characters: what must be escaped is.
    print(root);
    root.set(0, voxml::text::make_escaped("&lt;b&gt; as it stands").value());
    print(root);
    if (auto refused = voxml::text::make_escaped("a bare & sign"); !refused)
        std::cout << "refused: " << refused.error().message() << '\n';
    return 0;
}
