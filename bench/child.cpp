// Measurements that need a fresh process: the cost of its first decode, and the memory of trees.
//
// The process runs this program again. It gets the names of the files on its standard input and
// writes its numbers to its standard output.
#include "bench/clock.hpp"
#include "bench/race.hpp"

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <span>

namespace bench {
namespace {

constexpr const char *firstDecodeTask = "first-decode";
constexpr const char *weighTask = "weigh";

[[noreturn]] void become(const char *task, const char *contestant, int input, int output) {
    dup2(input, STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    execl("/proc/self/exe", "voxml_compare", "--child", task, contestant, nullptr);
    std::abort();
}

/// The numbers that a fresh process gives for the files.
std::vector<double> inFreshProcess(const char *task, const Contestant &contestant,
                                   std::span<const File> files) {
    std::FILE *names = std::tmpfile();
    std::FILE *numbers = std::tmpfile();
    if (!names || !numbers) std::abort();
    for (const File &file : files)
        std::fprintf(names, "%s\n", file.path.c_str());
    std::rewind(names);
    const pid_t child = fork();
    if (child == 0) become(task, contestant.name, fileno(names), fileno(numbers));
    int status = 0;
    if (waitpid(child, &status, 0) != child || status != 0) std::abort();
    std::rewind(numbers);
    std::vector<double> given;
    for (double number; std::fscanf(numbers, "%lf", &number) == 1;)
        given.push_back(number);
    std::fclose(names);
    std::fclose(numbers);
    return given;
}

std::vector<File> readNamedFiles() {
    std::vector<File> files;
    for (std::string path; std::getline(std::cin, path);)
        files.push_back(readFile(path));
    return files;
}

/// Bytes in touched pages that belong to no file, after freed memory was given back to the system.
double memoryInUse() {
    malloc_trim(0);
    std::ifstream sums("/proc/self/smaps_rollup");
    for (std::string word; sums >> word;) {
        double kilobytes = 0;
        if (word == "Anonymous:" && sums >> kilobytes) return kilobytes * 1024;
    }
    std::abort();
}

void weigh(const Contestant &contestant) {
    // What a library sets up once is not part of a tree.
    contestant.keep(makeFile({}, smallDocument(64)));
    const double empty = memoryInUse();
    std::vector<File> files = readNamedFiles();
    const double withTexts = memoryInUse();
    for (const File &file : files)
        contestant.keep(file);
    const double withTrees = memoryInUse();
    files.clear();
    std::printf("%.0f %.0f\n", withTrees - withTexts, memoryInUse() - empty);
}

void timeFirstDecode(const Contestant &contestant) {
    const std::vector<File> files = readNamedFiles();
    const double begin = processorSeconds();
    contestant.keep(files.front());
    std::printf("%.9f\n", processorSeconds() - begin);
}

} // namespace

void raceFirstDecode(const Group &group, int rounds, Figures &figures) {
    const std::span<const File> largest(&group.largest(), 1);
    const auto bytes = int64_t(largest[0].bytes.size());
    for (const Contestant *contestant : {&voxmlTree, &pugixmlTree})
        figures.push_back(
            {group.name, "first decode", contestant->name, Unit::secondsForBytes, bytes});
    const std::span<Figure> added = std::span(figures).last(2);
    for (; rounds > 0; --rounds) {
        added[0].add(inFreshProcess(firstDecodeTask, voxmlTree, largest).at(0));
        added[1].add(inFreshProcess(firstDecodeTask, pugixmlTree, largest).at(0));
    }
}

void weighTrees(const Group &group, Figures &figures) {
    Figures alone;
    for (const Contestant *contestant : contestants) {
        if (!contestant->keep) continue;
        const auto held = inFreshProcess(weighTask, *contestant, group.files);
        const Figure blank{group.name, {}, contestant->name, Unit::bytesForBytes, group.bytes()};
        figures.push_back(blank);
        figures.back().work = "memory";
        figures.back().add(held.at(0));
        alone.push_back(blank);
        alone.back().work = "memory alone";
        alone.back().add(held.at(1));
    }
    figures.insert(figures.end(), alone.begin(), alone.end());
}

int runChild(const std::string &task, const std::string &name) {
    for (const Contestant *contestant : contestants) {
        if (contestant->name != name) continue;
        task == weighTask ? weigh(*contestant) : timeFirstDecode(*contestant);
        return 0;
    }
    return 2;
}

} // namespace bench
