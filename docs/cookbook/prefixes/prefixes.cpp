#include <iostream>
#include <voxml.hpp>

int main() {
    using voxml::ns::attr, voxml::ns::element, voxml::namespace_mapping;
    constexpr const char *svg = "http://www.w3.org/2000/svg",
                         *link = "http://www.w3.org/1999/xlink";

    auto drawing =
        element::make({svg, "svg"}, element::make({svg, "a"}, attr{{link, "href"}, "#top"}));
    // Without declarations of our own the writer makes prefixes up.
    std::cout << drawing->encode()->view() << '\n';

    voxml::namespace_map map;
    map.set(namespace_mapping::make("", svg).value()); // The default namespace.
    map.set(namespace_mapping::make("xlink", link).value());
    drawing->set_namespaces(map);
    std::cout << drawing->encode()->view() << '\n';
    return 0;
}
