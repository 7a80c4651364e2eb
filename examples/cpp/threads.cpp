// Four threads derive a document each from one that they share: threads
#include <array>
#include <iostream>
#include <thread>
#include <voxml.hpp>

int main() {
    auto order = voxml::document::decode("<?xml version='1.0'?><order><state>new</state></order>");
    if (!order) return std::cerr << order.error().to_string() << '\n', 1;

    std::array<voxml::document, 4> derived{*order, *order, *order, *order};
    std::array<std::thread, 4> threads;
    for (std::size_t i = 0; i < threads.size(); ++i)
        threads[i] = std::thread([&mine = derived[i], i] {
            mine.edit_root([&](voxml::element &root) {
                root.edit_child("state", [&](auto &state) {
                    state.set_text("seen by " + std::to_string(i)).value();
                });
            });
        });
    for (auto &thread : threads)
        thread.join();
    for (const auto &document : derived)
        std::cout << *document.root()->child("state")->text() << '\n';
    std::cout << *order->root()->child("state")->text() << '\n';
}
