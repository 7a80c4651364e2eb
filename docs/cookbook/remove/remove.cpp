#include <iostream>
#include <voxml.hpp>

int main() {
    auto tasks = voxml::document::decode_file("tasks.xml").value();
    tasks.edit_root([](voxml::element &root) {
        const auto erased = root.erase_if([](const voxml::item &each) {
            const auto task = each.element();
            return task && task->attribute("state") == "done";
        });
        std::cout << erased << " removed\n";
    });
    std::cout << tasks.root()->encode()->view() << '\n';
    return 0;
}
