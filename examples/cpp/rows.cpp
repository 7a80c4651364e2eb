// Writes the cells of every row of a table as comma-separated values: rows FILE
#include <cstdio>
#include <iostream>
#include <voxml.hpp>

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
    auto table = voxml::document::decode_file(argv[1]);
    if (!table) return std::cerr << table.error().to_string() << '\n', 1;

    auto root = table->view().root();
    if (!root) return 1;
    std::string line;
    for (const auto &row : root->elements("row")) {
        line.clear();
        append_cell(line, row.attribute("id").value_or(""));
        for (const auto &cell : row.elements()) {
            line += ',';
            append_cell(line, cell.text().value_or(""));
        }
        line += '\n';
        std::fwrite(line.data(), 1, line.size(), stdout);
    }
}
