// Small random changes to texts, mostly with characters that mean something in XML.
#pragma once

#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace test {

class Mutator {
  public:
    explicit Mutator(uint32_t seed) : random(seed) {}

    size_t below(size_t end) { return random() % end; }

    /// `text` with a few changes, some of which bring in parts of `other`.
    std::string changed(std::string text, std::string_view other) {
        for (size_t changes = 1 + below(4); changes > 0; --changes)
            change(text, other);
        return text;
    }

  private:
    void change(std::string &text, std::string_view other) {
        const size_t place = below(text.size() + 1);
        const size_t length = below(std::min<size_t>(text.size() - place, 40) + 1);
        switch (below(8)) {
        case 0:
            return void(text.erase(place, length));
        case 1:
            return void(text.insert(below(text.size() + 1), text.substr(place, length)));
        case 2:
            if (other.empty()) return;
            return void(text.insert(place, other.substr(below(other.size()), 1 + below(60))));
        case 3:
            if (place < text.size()) text[place] = char(below(128));
            return;
        case 4:
            if (below(8) == 0) text.resize(place);
            return;
        case 5:
            return void(text.insert(place, below(70), "n x"[below(3)]));
        default:
            return void(text.insert(place, token()));
        }
    }

    std::string_view token() {
        using namespace std::string_view_literals;
        static constexpr std::string_view tokens[] = {
            "<",          ">",    "/",         "</",        "/>",     "=",      "'",
            "\"",         "&",    "&a;",       "&#65;",     "&#",     " ",      "\n",
            "\t",         "<!--", "-->",       "--",        "<?",     "?>",     "]]>",
            "<![CDATA[",  "a",    ":",         "xmlns:p='", "p:a",    "<a>",    "<a ",
            "<a></a>",    "a=''", " a=\"v\"",  "\0"sv,      "\u00E9", "\u4E2D", "</a>",
            "<!DOCTYPE",  "</ ",  "<a b='c'>", "\r\n",      "/ >",    "-",      ";",
            "\U0001F600", "a/b",  "x='<'"};
        return tokens[below(std::size(tokens))];
    }

    std::mt19937 random;
};

} // namespace test
