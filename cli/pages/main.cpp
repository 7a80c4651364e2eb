// Writes the manual page and the completions: voxml_pages PAGE_SOURCE FOLDER
#include "command_line.hpp"
#include "completions.hpp"
#include "manual.hpp"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

std::string read(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write(const std::filesystem::path &path, const std::string &text) {
    std::ofstream file(path, std::ios::binary);
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file << text << std::flush;
}

} // namespace

int main(int argc, char **argv) try {
    if (argc != 3) return std::cerr << "usage: voxml_pages PAGE_SOURCE FOLDER\n", 2;
    voModuleStartup(xmlModule());
    const std::filesystem::path folder = argv[2];
    const tool::ProgramUsage usage = tool::usageOfProgram();
    write(folder / "voxml.1", tool::manualOf(usage, read(argv[1])));
    write(folder / "voxml.bash", tool::bashCompletion(usage));
    write(folder / "_voxml", tool::zshCompletion(usage));
    write(folder / "voxml.fish", tool::fishCompletion(usage));
    voModuleShutdown(xmlModule());
    return 0;
} catch (const std::exception &exception) {
    std::cerr << "voxml_pages: " << exception.what() << '\n';
    return 1;
}
