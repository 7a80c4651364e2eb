#include <iostream>
#include <thread>
#include <vector>
#include <voxml.hpp>

// Derives a document of its own from one that all threads share. No lock is needed.
voxml::document raised(voxml::document orders, int percent) {
    orders.edit_root([&](voxml::element &root) {
        root.edit_children("order", [&](voxml::element &order) {
            const int sum = std::stoi(order.attribute("sum")->str());
            order.set_attribute("sum", std::to_string(sum * (100 + percent) / 100)).value();
        });
    });
    return orders;
}

int main() {
    const auto orders = voxml::document::decode_file("orders.xml").value();
    std::vector<voxml::document> derived(3);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < derived.size(); ++i)
        threads.emplace_back([&, i] { derived[i] = raised(orders, 20 * static_cast<int>(i)); });
    for (std::thread &each : threads)
        each.join();
    for (const voxml::document &each : derived)
        std::cout << each.root()->encode()->view() << '\n';
    return 0;
}
