// Random expressions over the words of a document.
#pragma once

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace test {

/// What a document has to ask about.
struct Words {
    std::vector<std::string> elements, attributes; ///< Names as expressions have them.
    std::vector<std::string> texts;                ///< Without quotes.
};

class RandomPath {
  public:
    RandomPath(uint32_t seed, const Words &known) : random(seed), words(known) {}

    /// A union of location paths.
    std::string path() {
        budget = 12;
        return unions(2);
    }

  private:
    int below(int end) { return int(random() % unsigned(end)); }
    bool once(int times) { return below(times) == 0; }

    std::string any(const std::vector<std::string> &list) {
        return list.empty() ? "none" : list[size_t(below(int(list.size())))];
    }

    std::string unions(int depth) {
        std::string out = route(depth, true);
        while (once(6))
            out += " | " + route(depth, true);
        return out;
    }

    std::string route(int depth, bool mayBeAbsolute) {
        std::string out;
        if (mayBeAbsolute && once(2)) {
            out = once(3) ? "/" : "//";
            if (out == "/" && once(8)) return "(/)"; // A word behind it would be a name.
        } else if (once(4)) {
            out = once(2) ? ".//" : "../";
        }
        for (;;) {
            out += step(depth);
            if (--budget < 0 || once(2)) return out;
            out += once(3) ? "//" : "/";
        }
    }

    std::string step(int depth) {
        switch (below(14)) {
        case 0:
            return ".";
        case 1:
        case 2:
            return "..";
        case 3:
            return "@" + (once(3) ? "*" : any(words.attributes)) + conditions(depth);
        case 4:
            return "text()" + conditions(depth);
        case 5:
            return "node()" + conditions(depth);
        case 6:
            return (once(2) ? "comment()" : "processing-instruction()") + conditions(depth);
        case 7:
        case 8:
            return "*" + conditions(depth);
        default:
            return any(words.elements) + conditions(depth);
        }
    }

    std::string conditions(int depth) {
        std::string out;
        while (depth > 0 && once(3))
            out += "[" + condition(depth - 1) + "]";
        return out;
    }

    std::string condition(int depth) {
        switch (below(12)) {
        case 0:
            return std::to_string(1 + below(3));
        case 1:
            return "last()";
        case 2:
            return "position()" + relation() + number(depth);
        case 3:
            return "not(" + condition(depth) + ")";
        case 4:
            return (depth > 0 ? condition(depth - 1) : value(depth)) +
                   (once(2) ? " and " : " or ") + value(depth);
        case 5:
            return "contains(" + value(depth) + ", " + text() + ")";
        case 6:
            return "starts-with(" + value(depth) + ", " + value(depth) + ")";
        case 7:
            return unions(depth);
        default:
            return value(depth) + relation() + value(depth);
        }
    }

    std::string relation() {
        const char *const relations[] = {"=", "=", "=", "!=", "<", "<=", ">", ">="};
        return relations[below(8)];
    }

    std::string number(int depth) {
        switch (below(6)) {
        case 0:
            return "count(" + route(depth, false) + ")";
        case 1:
            return "last()";
        case 2:
            return "-" + std::to_string(below(3));
        case 3:
            return std::to_string(below(40)) + ".5";
        default:
            return std::to_string(below(5));
        }
    }

    std::string text() {
        std::string piece = any(words.texts);
        const bool isAscii = std::ranges::all_of(piece, [](char ch) { return ch >= 0; });
        if (isAscii && once(2)) piece = piece.substr(0, size_t(1 + below(4)));
        return "'" + piece + "'";
    }

    std::string value(int depth) {
        if (--budget < 0) return text();
        switch (below(8)) {
        case 0:
            return number(depth);
        case 1:
        case 2:
            return text();
        case 3:
            return ".";
        case 4:
            return "@" + any(words.attributes);
        default:
            return route(depth, once(6));
        }
    }

    std::mt19937 random;
    const Words &words;
    int budget = 0;
};

} // namespace test
