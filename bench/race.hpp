// The races: every round runs every contestant once on each work in turn, so that a noisy machine
// hits all of them alike.
#pragma once

#include "bench/contestant.hpp"
#include "bench/group.hpp"

#include <limits>
#include <string>
#include <vector>

namespace bench {

/// The unit of the rounds of a figure, and of its amount.
enum class Unit { secondsForBytes, secondsForDocuments, bytesForBytes };

struct Figure {
    std::string group, work, contestant;
    Unit unit;
    int64_t amount; ///< Bytes or documents.
    std::vector<double> rounds = {};
    double best = std::numeric_limits<double>::infinity(); ///< For the whole amount, too.

    void add(double round);
    double bestForOne() const { return best / double(amount); }
};

using Figures = std::vector<Figure>;

/// The works of each contestant, in processor time. Files are timed a few at a time, and the best
/// round is the sum of the best times of these parts, because hardly a round passes undisturbed.
void raceWorks(const Group &group, int rounds, Figures &figures);

/// Documents of 64 bytes, 1 KB and 10 KB, which belong to no group of files.
void raceSmallDocuments(int rounds, Figures &figures);

/// Two threads that decode a half of the files each, beside one thread that decodes all of them, in
/// elapsed time. Does nothing where there is one processor.
void raceThreads(const Group &group, int rounds, Figures &figures);

/// The first decode of a process, in processor time: the largest file of the group.
void raceFirstDecode(const Group &group, int rounds, Figures &figures);

/// The memory of trees, in a process that decodes all files of the group: "memory" is what it grows
/// by while the caller keeps the texts, "memory alone" what is left when the caller has released
/// them. It counts all pages that the process has touched.
void weighTrees(const Group &group, Figures &figures);

/// Serves raceFirstDecode() and weighTrees() in the process that they start; gives its exit status.
int runChild(const std::string &task, const std::string &contestant);

} // namespace bench
