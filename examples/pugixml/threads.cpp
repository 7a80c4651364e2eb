// Four threads derive a document each from one, of which each makes a copy: threads
#include <array>
#include <iostream>
#include <pugixml.hpp>
#include <thread>

int main() {
    pugi::xml_document order;
    auto loaded = order.load_string("<?xml version='1.0'?><order><state>new</state></order>");
    if (!loaded) {
        std::cerr << loaded.description() << '\n';
        return 1;
    }

    std::array<pugi::xml_document, 4> derived;
    std::array<std::thread, 4> threads;
    for (std::size_t i = 0; i < threads.size(); ++i)
        threads[i] = std::thread([&order, &mine = derived[i], i] {
            mine.reset(order);
            auto state = mine.child("order").child("state");
            state.text() = ("seen by " + std::to_string(i)).c_str();
        });
    for (auto &thread : threads)
        thread.join();
    for (const auto &document : derived)
        std::cout << document.child("order").child("state").text().get() << '\n';
    std::cout << order.child("order").child("state").text().get() << '\n';
}
