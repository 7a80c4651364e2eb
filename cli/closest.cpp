#include "closest.hpp"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace tool {

/// A word in lower case and without punctuation: most misspellings differ in nothing else.
static std::string folded(std::string_view word) {
    std::string out;
    for (char ch : word) {
        if (ch >= 'A' && ch <= 'Z') ch = static_cast<char>(ch - 'A' + 'a');
        if ((ch >= 'a' && ch <= 'z') || (ch >= '0' && ch <= '9')) out += ch;
    }
    return out;
}

/// How many characters have to be added, removed, replaced or swapped with the next to make one
/// text the other.
static size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<size_t> before, row(b.size() + 1), next(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 0; i < a.size(); ++i) {
        next[0] = i + 1;
        for (size_t j = 0; j < b.size(); ++j) {
            next[j + 1] = std::min({row[j] + (a[i] != b[j]), row[j + 1] + 1, next[j] + 1});
            if (i > 0 && j > 0 && a[i] == b[j - 1] && a[i - 1] == b[j])
                next[j + 1] = std::min(next[j + 1], before[j - 1] + 1);
        }
        before = std::exchange(row, next);
    }
    return row.back();
}

/// The beginning of a word, if it is not too short to tell, comes as close as a slip.
static size_t distanceBetween(std::string_view wanted, std::string_view word) {
    constexpr size_t telling = 3;
    const bool begins = wanted.size() >= telling && word.starts_with(wanted);
    return begins ? std::min<size_t>(1, word.size() - wanted.size()) : editDistance(wanted, word);
}

const std::string *closest(std::string_view wanted, std::span<const std::string> words) {
    const std::string folding = folded(wanted);
    size_t limit = folding.size() / 3 + 1; // A short word is close to everything.
    const std::string *found = nullptr;
    for (const std::string &word : words) {
        const size_t distance = distanceBetween(folding, folded(word));
        if (distance >= limit) continue;
        limit = distance;
        found = &word;
    }
    return found;
}

} // namespace tool
