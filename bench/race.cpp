#include "bench/race.hpp"

#include "bench/clock.hpp"

#include <algorithm>
#include <numeric>
#include <span>

namespace bench {
namespace {

/// A work by the name that it has in every output.
struct NamedWork {
    const char *name;
    Work Contestant::*work;
};

constexpr NamedWork works[] = {
    {"decode", &Contestant::decode},
    {"locations", &Contestant::locations},
    {"namespaces", &Contestant::namespaces},
    {"encode", &Contestant::encode},
    {"read", &Contestant::read},
    {"change", &Contestant::change},
};

// All but the name and the work that is not raced by time.
static_assert(sizeof(Contestant) == sizeof(const char *) + (std::size(works) + 1) * sizeof(Work));

using Files = std::span<const File>;

struct Entry {
    Work work;
    Figure figure;
};

/// One entry for each contestant that can do the work.
void enter(std::vector<Entry> &entries, const NamedWork &work, const Figure &blank) {
    for (const Contestant *contestant : contestants) {
        if (!(contestant->*work.work)) continue;
        entries.push_back({contestant->*work.work, blank});
        entries.back().figure.work = work.name;
        entries.back().figure.contestant = contestant->name;
    }
}

double secondsOf(Work work, Files files, int64_t times) {
    const double begin = processorSeconds();
    for (; times > 0; --times)
        for (const File &file : files)
            work(file);
    return processorSeconds() - begin;
}

/// The files in runs: long enough for the clock, and short enough to be mostly done without an
/// interruption by another process.
std::vector<Files> runsOf(Files files) {
    constexpr size_t enough = size_t{128} << 10;
    std::vector<Files> runs;
    size_t begin = 0, bytes = 0;
    for (size_t i = 0; i < files.size(); ++i) {
        bytes += files[i].bytes.size();
        if (bytes < enough && i + 1 < files.size()) continue;
        runs.push_back(files.subspan(begin, i + 1 - begin));
        begin = i + 1;
        bytes = 0;
    }
    return runs;
}

/// Does one round of the work and updates the best time of each run.
void raceOnce(Entry &entry, std::span<const Files> runs, std::vector<double> &best) {
    best.resize(runs.size(), std::numeric_limits<double>::infinity());
    double round = 0;
    for (size_t i = 0; i < runs.size(); ++i) {
        const double seconds = secondsOf(entry.work, runs[i], 1);
        best[i] = std::min(best[i], seconds);
        round += seconds;
    }
    entry.figure.add(round);
    entry.figure.best = std::accumulate(best.begin(), best.end(), 0.0);
}

void raceSmallDocument(const char *name, size_t size, int rounds, Figures &figures) {
    constexpr size_t bytesInAll = size_t{128} << 10;
    const auto times = int64_t(bytesInAll / size);
    const File file = makeFile(name, smallDocument(size));
    std::vector<Entry> entries;
    enter(entries, {name, &Contestant::decode},
          {"small documents", {}, {}, Unit::secondsForDocuments, times});
    for (; rounds > 0; --rounds)
        for (Entry &entry : entries)
            entry.figure.add(secondsOf(entry.work, {&file, 1}, times));
    for (Entry &entry : entries)
        figures.push_back(std::move(entry.figure));
}

} // namespace

void Figure::add(double round) {
    rounds.push_back(round);
    best = std::min(best, round);
}

void raceWorks(const Group &group, int rounds, Figures &figures) {
    std::vector<Entry> entries;
    for (const NamedWork &work : works)
        enter(entries, work, {group.name, {}, {}, Unit::secondsForBytes, group.bytes()});
    const std::vector<Files> runs = runsOf(group.files);
    std::vector<std::vector<double>> best(entries.size());
    for (; rounds > 0; --rounds)
        for (size_t i = 0; i < entries.size(); ++i)
            raceOnce(entries[i], runs, best[i]);
    for (Entry &entry : entries)
        figures.push_back(std::move(entry.figure));
}

void raceSmallDocuments(int rounds, Figures &figures) {
    // These take so little time that there can be more rounds, of which one will be undisturbed.
    constexpr int turns = 10;
    raceSmallDocument("64 bytes", 64, rounds * turns, figures);
    raceSmallDocument("1 KB", 1000, rounds * turns, figures);
    raceSmallDocument("10 KB", 10000, rounds * turns, figures);
}

} // namespace bench
