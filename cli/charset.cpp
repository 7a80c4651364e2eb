#include "charset.hpp"

#include <algorithm>
#include <numeric>
#include <vector>

namespace tool {

static std::vector<std::string> aliasesOf(voCharset charset) {
    Ref aliases(voCharsetAliases(charset));
    std::vector<std::string> names;
    for (int64_t i = 0; i < voVectorLength(aliases); ++i)
        names.push_back(take(voStringFrom(voVectorObjAt(aliases, i))));
    return names;
}

/// A name in lower case and without punctuation: most misspellings differ in nothing else.
static std::string folded(std::string_view name) {
    std::string out;
    for (char ch : name) {
        if (ch >= 'A' && ch <= 'Z') ch = static_cast<char>(ch - 'A' + 'a');
        if ((ch >= 'a' && ch <= 'z') || (ch >= '0' && ch <= '9')) out += ch;
    }
    return out;
}

/// How many characters have to be added, removed or replaced to make one text the other.
static size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 0; i < a.size(); ++i) {
        size_t diagonal = std::exchange(row[0], i + 1);
        for (size_t j = 0; j < b.size(); ++j) {
            const size_t replaced = diagonal + (a[i] != b[j]);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

voCharset charsetNamed(std::string_view name) {
    const voCharset charset = voCharsetFromIanaName(makeString(name));
    return VO_CHARSET_OK(charset) ? charset : -1;
}

voCharset closestCharset(std::string_view name) {
    const std::string wanted = folded(name);
    size_t least = wanted.size() / 3; // A short word is close to everything.
    voCharset closest = -1;
    for (voCharset charset = 0; VO_CHARSET_OK(charset); ++charset) {
        std::vector<std::string> names = aliasesOf(charset);
        names.push_back(charsetName(charset));
        for (const std::string &known : names) {
            const size_t distance = editDistance(wanted, folded(known));
            if (distance > least || (distance == least && closest >= 0)) continue;
            least = distance;
            closest = charset;
        }
    }
    return closest;
}

std::string charsetName(voCharset charset) { return take(voCharsetToIanaName(charset)); }

std::string charsetTable() {
    constexpr size_t idWidth = 3, nameWidth = 14;
    std::string table;
    for (voCharset charset = 0; VO_CHARSET_OK(charset); ++charset) {
        const std::string id = std::to_string(charset);
        std::string line = std::string(idWidth - id.size(), ' ') + id + "  " + charsetName(charset);
        const size_t aliasColumn = idWidth + 2 + nameWidth;
        std::string_view separator;
        for (const std::string &alias : aliasesOf(charset)) {
            if (line.size() < aliasColumn) line.resize(aliasColumn, ' ');
            line.append(separator).append(alias);
            separator = ", ";
        }
        table += line + "\n";
    }
    return table;
}

} // namespace tool
