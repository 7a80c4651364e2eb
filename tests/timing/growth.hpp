// How time grows with the input. These tests run alone, so that no neighbour takes the caches, and
// never under a sanitizer, which changes what takes how long.
#pragma once

#include "tests/support.hpp"

#include <algorithm>

namespace test {

/// The shortest of some runs in seconds of this thread's processor time, which other programs on
/// the machine do not stretch.
inline double secondsOf(const std::function<void()> &work, int runs = 3) {
    double best = 1e9;
    for (; runs > 0; --runs) {
        const double begin = threadSeconds();
        work();
        best = std::min(best, threadSeconds() - begin);
    }
    return best;
}

/// Expects that `n` things take little more than ten times as long as a tenth of them, which a
/// quadratic algorithm does a hundred times as long.
inline void expectLinear(int64_t n, const std::function<double(int64_t)> &seconds) {
    const double small = seconds(n / 10);
    EXPECT_LT(seconds(n), small * tenfold + 0.02);
}

inline std::string repeated(std::string_view piece, int64_t count) {
    std::string all;
    all.reserve(piece.size() * size_t(count));
    for (; count > 0; --count)
        all += piece;
    return all;
}

/// So many pieces, each made from its number.
inline std::string numbered(int64_t count, const std::function<std::string(std::string)> &piece) {
    std::string all;
    for (int64_t i = 0; i < count; ++i)
        all += piece(std::to_string(i));
    return all;
}

} // namespace test
