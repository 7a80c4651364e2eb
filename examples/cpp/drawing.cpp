// Makes a drawing of 1,000 circles from nothing: drawing FILE
#include <iostream>
#include <voxml.hpp>

int main(int argc, char **argv) {
    if (argc != 2) return 2;
    using voxml::attr, voxml::element;
    auto svg = element::make("svg", attr{"xmlns", "http://www.w3.org/2000/svg"},
                             attr{"viewBox", "0 0 400 250"},
                             element::make("title", "1,000 circles & no square"));
    for (int i = 0; svg && i < 1000; ++i) {
        auto done = svg->append(element::make("circle", attr{"cx", std::to_string(i % 40 * 10 + 5)},
                                              attr{"cy", std::to_string(i / 40 * 10 + 5)},
                                              attr{"r", std::to_string(i % 5 + 1)}));
        if (!done) svg = done.error();
    }
    if (!svg) return std::cerr << svg.error().to_string() << '\n', 1;
    auto written = voxml::document(*svg).encode_file(argv[1]);
    if (!written) return std::cerr << written.error().to_string() << '\n', 1;
}
