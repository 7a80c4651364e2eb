// Makes a drawing of 1,000 circles from nothing: drawing FILE
#include <iostream>
#include <pugixml.hpp>

int main(int argc, char **argv) {
    if (argc != 2) return 2;
    pugi::xml_document document;
    auto svg = document.append_child("svg");
    svg.append_attribute("xmlns") = "http://www.w3.org/2000/svg";
    svg.append_attribute("viewBox") = "0 0 400 250";
    svg.append_child("title").text() = "1,000 circles & no square";
    for (int i = 0; i < 1000; ++i) {
        auto circle = svg.append_child("circle");
        circle.append_attribute("cx") = i % 40 * 10 + 5;
        circle.append_attribute("cy") = i / 40 * 10 + 5;
        circle.append_attribute("r") = i % 5 + 1;
    }
    if (!document.save_file(argv[1], "", pugi::format_raw)) {
        std::cerr << argv[1] << ": cannot be written\n";
        return 1;
    }
}
