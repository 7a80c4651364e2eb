// How much is made beyond what was asked for.
#pragma once

#include <algorithm>
#include <cstdint>

namespace xml {

/// Decides how many nodes are made in advance. A program that asks for node after node in document
/// order will most likely ask for the next ones too; making many at once is faster, and they then
/// lie in memory in that order. A program that asks for a few nodes here and there gets just these.
/// Nodes are identified by the numbers of their records.
class ReadAhead {
  public:
    /// How many records may be made in advance now that a node is asked for.
    uint64_t allowance(uint64_t number) {
        hits = number - expected <= mostSkipped ? std::min(hits + 1, patience + most) : 0;
        return hits < patience ? 0 : uint64_t{1} << (hits - patience);
    }

    /// Tells which node will be asked for next if the program reads everything.
    void expect(uint64_t number) { expected = number; }

  private:
    /// Records between two nodes that are asked for one after the other: white space, of which the
    /// items are always made, stands behind each element that ends.
    static constexpr uint64_t mostSkipped = 16;
    /// Hits before anything is made in advance: a short way down a tree is in document order too.
    static constexpr int patience = 6;
    /// The binary logarithm of the most records at once, whose objects take about two chunks.
    static constexpr int most = 10;

    uint64_t expected = 0;
    int hits = 0;
};

} // namespace xml
