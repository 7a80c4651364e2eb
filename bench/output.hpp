// What the program writes: a table for each group as soon as that is measured, and a file of all
// raw figures.
#pragma once

#include "bench/race.hpp"

#include <span>
#include <string>

namespace bench {

void printGroup(const Group &group);

/// A table with a row for each work and a column for each contestant: the best rounds.
void printTable(std::span<const Figure> figures);

/// All that was measured, as JSON.
class Record {
  public:
    void add(const Group &group);
    /// Whether the file could be written.
    bool write(const std::string &path, int rounds, const Figures &figures) const;

  private:
    std::string groups;
};

} // namespace bench
