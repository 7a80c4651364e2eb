#include "alignment.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace tool {
namespace {

/// Finds a longest common subsequence in linear space: by Myers' algorithm, ranges are split in the
/// middle of a shortest way from one to the other, until nothing but equal or different members is
/// left. The ranges wait on a stack. Where a shortest way is long, one that leads far in the first
/// steps is taken for it.
class Aligner {
  public:
    using Index = int64_t;

    Aligner(Index lengthA, Index lengthB, const std::function<bool(size_t, size_t)> &equal)
        : areEqual(equal), partners(static_cast<size_t>(lengthA), noPartner),
          shift(static_cast<size_t>(lengthB) + 1),
          forward(static_cast<size_t>(lengthA + lengthB) + 3), backward(forward.size()) {
        ranges.push_back({0, lengthA, 0, lengthB});
        while (!ranges.empty()) {
            Range range = ranges.back();
            ranges.pop_back();
            pairEnds(range);
            if (range.isFilled()) split(range);
        }
        balance(lengthA, lengthB);
    }

    std::vector<size_t> take() { return std::move(partners); }

  private:
    struct Range {
        Index fromA, toA, fromB, toB;

        bool isFilled() const { return fromA < toA && fromB < toB; }
    };

    /// Diagonals, a - b, that were reached by a number of steps.
    struct Front {
        Index least, greatest;

        bool has(Index diagonal) const { return diagonal >= least && diagonal <= greatest; }
    };

    bool isMatch(Index a, Index b) const {
        return areEqual(static_cast<size_t>(a), static_cast<size_t>(b));
    }
    Index &ahead(Index diagonal) { return forward[static_cast<size_t>(diagonal) + shift]; }
    Index &behind(Index diagonal) { return backward[static_cast<size_t>(diagonal) + shift]; }

    void pairEnds(Range &range) {
        for (; range.isFilled() && isMatch(range.fromA, range.fromB); ++range.fromA, ++range.fromB)
            pair(range.fromA, range.fromB);
        for (; range.isFilled() && isMatch(range.toA - 1, range.toB - 1); --range.toA, --range.toB)
            pair(range.toA - 1, range.toB - 1);
    }

    void pair(Index a, Index b) { partners[static_cast<size_t>(a)] = static_cast<size_t>(b); }

    void split(const Range &range) {
        const auto [a, b] = middle(range);
        ranges.push_back({range.fromA, a, range.fromB, b});
        ranges.push_back({a, range.toA, b, range.toB});
    }

    struct Point {
        Index a, b;
    };

    /// A point other than the corners of the range.
    Point middle(const Range &range) {
        constexpr int mostSteps = 200;
        const Index start = range.fromA - range.fromB, end = range.toA - range.toB;
        Front fromStart{start, start}, fromEnd{end, end};
        ahead(start) = range.fromA;
        behind(end) = range.toA;
        const bool isOdd = (start - end) % 2 != 0;
        Point met{};
        for (int step = 0; step < mostSteps; ++step) {
            widen(range, fromStart, forward, -1);
            if (advance(range, fromStart, isOdd ? &fromEnd : nullptr, met)) return met;
            widen(range, fromEnd, backward, std::numeric_limits<Index>::max());
            if (retreat(range, fromEnd, isOdd ? nullptr : &fromStart, met)) return met;
        }
        return farthest(range, fromStart, fromEnd);
    }

    /// Lets a front reach the diagonals beside it, as far as the range has them.
    void widen(const Range &range, Front &front, std::vector<Index> &reached, Index unreached) {
        const auto set = [&](Index diagonal) {
            reached[static_cast<size_t>(diagonal) + shift] = unreached;
        };
        if (front.least > range.fromA - range.toB)
            set(--front.least - 1);
        else
            ++front.least;
        if (front.greatest < range.toA - range.fromB)
            set(++front.greatest + 1);
        else
            --front.greatest;
    }

    /// One step more from the start; true when it meets the other front.
    bool advance(const Range &range, const Front &front, const Front *other, Point &met) {
        for (Index diagonal = front.greatest; diagonal >= front.least; diagonal -= 2) {
            Index a = std::max(ahead(diagonal - 1) + 1, ahead(diagonal + 1));
            while (a < range.toA && a - diagonal < range.toB && isMatch(a, a - diagonal))
                ++a;
            ahead(diagonal) = a;
            met = {a, a - diagonal};
            if (other && other->has(diagonal) && behind(diagonal) <= a) return true;
        }
        return false;
    }

    /// One step more from the end; true when it meets the other front.
    bool retreat(const Range &range, const Front &front, const Front *other, Point &met) {
        for (Index diagonal = front.greatest; diagonal >= front.least; diagonal -= 2) {
            Index a = std::min(behind(diagonal - 1), behind(diagonal + 1) - 1);
            while (a > range.fromA && a - diagonal > range.fromB &&
                   isMatch(a - 1, a - diagonal - 1))
                --a;
            behind(diagonal) = a;
            met = {a, a - diagonal};
            if (other && other->has(diagonal) && a <= ahead(diagonal)) return true;
        }
        return false;
    }

    /// The point that is farthest from the start or the end, whatever was covered most of.
    Point farthest(const Range &range, const Front &fromStart, const Front &fromEnd) {
        Point best{range.fromA, range.fromB};
        Index covered = -1;
        const auto consider = [&](Index a, Index diagonal, bool isAhead) {
            const Index b = a - diagonal;
            if (a < range.fromA || a > range.toA || b < range.fromB || b > range.toB) return;
            const Index way =
                isAhead ? a - range.fromA + b - range.fromB : range.toA - a + range.toB - b;
            if (way <= covered) return;
            covered = way;
            best = {a, b};
        };
        for (Index at = fromStart.greatest; at >= fromStart.least; at -= 2)
            consider(ahead(at), at, true);
        for (Index at = fromEnd.greatest; at >= fromEnd.least; at -= 2)
            consider(behind(at), at, false);
        return best;
    }

    /// Members that follow each other and so do their partners.
    struct Run {
        Index a, b, length;
    };

    /// Among equal members it is open which have partners. Runs are moved so that members without
    /// one stand beside such of the other sequence, since these may be versions of each other.
    void balance(Index lengthA, Index lengthB) {
        std::vector<Run> runs = {{0, 0, 0}};
        for (Index a = 0; a < lengthA; ++a) {
            if (partners[static_cast<size_t>(a)] == noPartner) continue;
            const auto b = static_cast<Index>(partners[static_cast<size_t>(a)]);
            Run &last = runs.back();
            if (last.a + last.length == a && last.b + last.length == b)
                ++last.length;
            else
                runs.push_back({a, b, 1});
        }
        runs.push_back({lengthA, lengthB, 0});
        for (size_t i = 1; i + 1 < runs.size(); ++i)
            move(runs[i - 1], runs[i], runs[i + 1]);
    }

    void move(const Run &before, Run &run, const Run &after) {
        // How many more members of B than of A lie in a gap.
        const auto surplus = [](const Run &from, const Run &to) {
            return (to.b - from.b) - (to.a - from.a);
        };
        const Index inFront = surplus(before, run), behind = surplus(run, after);
        if ((inFront > 0) == (behind > 0) || inFront == 0 || behind == 0) return;
        const Index way = std::min(std::abs(inFront), std::abs(behind));
        const Index wayA = inFront > 0 ? way : 0, wayB = inFront > 0 ? 0 : way;
        for (Index i = 0; i < run.length; ++i)
            if (!isMatch(run.a + wayA + i, run.b + wayB + i)) return;
        std::fill_n(partners.begin() + run.a, run.length, noPartner);
        run.a += wayA;
        run.b += wayB;
        for (Index i = 0; i < run.length; ++i)
            pair(run.a + i, run.b + i);
    }

    const std::function<bool(size_t, size_t)> &areEqual;
    std::vector<size_t> partners;
    const size_t shift;                   ///< What the index of a diagonal is greater by than it.
    std::vector<Index> forward, backward; ///< How far each diagonal was followed, as an index in A.
    std::vector<Range> ranges;
};

} // namespace

std::vector<size_t> align(size_t lengthA, size_t lengthB,
                          const std::function<bool(size_t, size_t)> &areEqual) {
    return Aligner(static_cast<Aligner::Index>(lengthA), static_cast<Aligner::Index>(lengthB),
                   areEqual)
        .take();
}

} // namespace tool
