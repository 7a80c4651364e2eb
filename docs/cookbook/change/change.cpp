#include <iostream>
#include <voxml.hpp>

int main() {
    using voxml::element;
    auto settings = voxml::document::decode_file("settings.xml").value();
    settings.edit_root([](element &root) {
        root.edit_child("window",
                        [](element &window) { window.set_attribute("width", "1024").value(); });
        root.edit_child("user", [](element &user) {
            user.edit_child("name", [](element &name) { name.set_text("Ann & Bo").value(); });
        });
    });
    settings.encode_file("settings.xml").value(); // The old file goes when the new one is whole.
    std::cout << voxml::document::decode_file("settings.xml").value().encode()->view();
    return 0;
}
