// Times this library and its peers on the same files in one process:
//     voxml_compare [--rounds N] [--json FILE] GROUP...
//
// Each GROUP is a folder; of its files those are used that every contestant accepts. The tables
// show the best of N rounds, the JSON file all of them. bench/run builds this, runs it, and tells
// what the figures mean.
#include "bench/clock.hpp"
#include "bench/output.hpp"
#include "bench/race.hpp"
#include "xml/xml.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace bench;

struct Arguments {
    int rounds = 7;
    std::string json;
    std::vector<std::string> folders;
};

/// The arguments of the command line, or nothing if they are wrong.
std::optional<Arguments> parse(int argc, char **argv) {
    Arguments arguments;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "--rounds" && i + 1 < argc)
            arguments.rounds = std::atoi(argv[++i]);
        else if (word == "--json" && i + 1 < argc)
            arguments.json = argv[++i];
        else if (word.starts_with("-"))
            return std::nullopt;
        else
            arguments.folders.push_back(word);
    }
    if (arguments.rounds < 1 || arguments.folders.empty()) return std::nullopt;
    return arguments;
}

void measure(const Group &group, int rounds, Figures &figures) {
    const size_t before = figures.size();
    raceWorks(group, rounds, figures);
    raceFirstDecode(group, rounds, figures);
    raceThreads(group, rounds, figures);
    weighTrees(group, figures);
    printTable(std::span(figures).subspan(before));
}

/// The allocator keeps freed memory only after it has seen large blocks freed. Freeing one at the
/// start makes the order of the groups irrelevant: otherwise small documents would get their memory
/// from the system again and again, except behind a large one.
void settleAllocator() {
    constexpr size_t nearlyItsMost = size_t{31} << 20;
    void *volatile block = std::malloc(nearlyItsMost);
    std::free(block);
}

/// Refuses a second group of the same name, since figures are identified by it.
void requireNewName(const Group &group, const Figures &figures) {
    for (const Figure &figure : figures) {
        if (figure.group != group.name) continue;
        std::fprintf(stderr, "voxml_compare: two groups are called %s\n", group.name.c_str());
        std::exit(2);
    }
}

bool run(const Arguments &arguments) {
    settleAllocator();
    Figures figures;
    Record record;
    raceSmallDocuments(arguments.rounds, figures);
    std::printf("small documents, made by this program\n");
    printTable(figures);
    for (const std::string &folder : arguments.folders) {
        const Group group = readGroup(folder);
        requireNewName(group, figures);
        printGroup(group);
        record.add(group);
        if (!group.files.empty()) measure(group, arguments.rounds, figures);
    }
    return arguments.json.empty() || record.write(arguments.json, arguments.rounds, figures);
}

int measureAll(int argc, char **argv) {
    const auto arguments = parse(argc, argv);
    if (!arguments) {
        std::fprintf(stderr, "usage: voxml_compare [--rounds N] [--json FILE] GROUP...\n");
        return 2;
    }
    stayOn(processors().back());
    if (run(*arguments)) return 0;
    std::fprintf(stderr, "voxml_compare: cannot write %s\n", arguments->json.c_str());
    return 3;
}

} // namespace

int main(int argc, char **argv) {
    voModuleStartup(xmlModule());
    const bool child = argc == 4 && std::string(argv[1]) == "--child";
    const int status = child ? runChild(argv[2], argv[3]) : measureAll(argc, argv);
    voModuleShutdown(xmlModule());
    return status;
}
