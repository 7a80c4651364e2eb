// Two threads on separate documents.
#include "bench/clock.hpp"
#include "bench/race.hpp"

#include <algorithm>
#include <latch>
#include <thread>

namespace bench {
namespace {

using Half = std::vector<const File *>;

int64_t bytes(const Half &half) {
    int64_t sum = 0;
    for (const File *file : half)
        sum += int64_t(file->bytes.size());
    return sum;
}

/// Two parts of about the same number of bytes. A lone file is decoded by both.
std::vector<Half> halves(const Group &group) {
    Half all;
    for (const File &file : group.files)
        all.push_back(&file);
    if (all.size() == 1) return {all, all};
    std::sort(all.begin(), all.end(),
              [](const File *a, const File *b) { return a->bytes.size() > b->bytes.size(); });
    std::vector<Half> parts(2);
    for (const File *file : all)
        parts[bytes(parts[0]) > bytes(parts[1])].push_back(file);
    return parts;
}

struct Span {
    double begin, end;
};

Span decodeAll(Work decode, const Half &files, int processor, std::latch &start) {
    const auto pass = [&] {
        for (const File *file : files)
            decode(*file);
    };
    stayOn(processor);
    pass(); // Not measured: a new thread has a heap of its own, whose first use costs more.
    start.arrive_and_wait();
    const double begin = elapsedSeconds();
    pass();
    return {begin, elapsedSeconds()};
}

/// From the first start to the last end, a thread and a processor for each part.
double secondsOf(Work decode, const std::vector<Half> &parts) {
    std::latch start(std::ptrdiff_t(parts.size()));
    std::vector<Span> spans(parts.size());
    std::vector<std::thread> threads;
    for (size_t i = 0; i < parts.size(); ++i)
        threads.emplace_back(
            [&, i] { spans[i] = decodeAll(decode, parts[i], processors()[i], start); });
    for (std::thread &thread : threads)
        thread.join();
    Span whole = spans[0];
    for (const Span &span : spans)
        whole = {std::min(whole.begin, span.begin), std::max(whole.end, span.end)};
    return whole.end - whole.begin;
}

struct Runner {
    Work decode;
    std::vector<Half> parts;
    Figure figure;
};

Runner makeRunner(const char *work, const Contestant &contestant, const Group &group,
                  std::vector<Half> parts) {
    int64_t amount = 0;
    for (const Half &part : parts)
        amount += bytes(part);
    return {contestant.decode,
            std::move(parts),
            {group.name, work, contestant.name, Unit::secondsForBytes, amount}};
}

} // namespace

void raceThreads(const Group &group, int rounds, Figures &figures) {
    if (processors().size() < 2) return;
    std::vector<Half> two = halves(group);
    Half one = two[0];
    if (group.files.size() > 1) one.insert(one.end(), two[1].begin(), two[1].end());
    std::vector<Runner> runners;
    for (const Contestant *contestant : {&voxmlTree, &pugixmlTree}) {
        runners.push_back(makeRunner("one thread", *contestant, group, {one}));
        runners.push_back(makeRunner("two threads", *contestant, group, two));
    }
    for (; rounds > 0; --rounds)
        for (Runner &runner : runners)
            runner.figure.add(secondsOf(runner.decode, runner.parts));
    for (Runner &runner : runners)
        figures.push_back(std::move(runner.figure));
}

} // namespace bench
