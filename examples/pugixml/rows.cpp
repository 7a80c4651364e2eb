// Writes the cells of every row of a table as comma-separated values: rows FILE
#include <cstdio>
#include <iostream>
#include <pugixml.hpp>
#include <string_view>

static void append_cell(std::string &line, std::string_view cell) {
    if (cell.find_first_of(",\"\n") == cell.npos) {
        line += cell;
        return;
    }
    line += '"';
    for (char c : cell)
        line.append(c == '"' ? 2 : 1, c);
    line += '"';
}

int main(int argc, char **argv) {
    if (argc != 2) return 2;
    pugi::xml_document table;
    auto loaded = table.load_file(argv[1]);
    if (!loaded) {
        std::cerr << argv[1] << ": " << loaded.description() << '\n';
        return 1;
    }

    auto root = table.document_element();
    if (!root) return 1;
    std::string line;
    for (const auto &row : root.children("row")) {
        line.clear();
        append_cell(line, row.attribute("id").value());
        for (const auto &cell : row.children()) {
            line += ',';
            append_cell(line, cell.text().get());
        }
        line += '\n';
        std::fwrite(line.data(), 1, line.size(), stdout);
    }
}
