// Random documents, with everything that a document may hold in all layouts that are accepted.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

namespace test {

class RandomXml {
  public:
    explicit RandomXml(uint32_t seed) : random(seed) {}

    /// A well-formed document of about so many nodes. Most use only prefixes that they declare.
    std::string document(int nodes);

  private:
    int below(int end) { return int(random() % unsigned(end)); }
    bool once(int times) { return below(times) == 0; }
    template <size_t n> std::string_view any(const std::string_view (&words)[n]) {
        return words[size_t(below(int(n)))];
    }

    void node(int depth);
    void element(int depth);
    void attributes(bool top);
    void attribute(std::string_view name, std::string_view value);
    std::string_view name();
    std::string_view space(); ///< White space for places where the canonical layout has none.

    std::mt19937 random;
    std::string out;
    int left = 0;         ///< Nodes still to be written.
    int width = 0;        ///< The most children that an element gets.
    bool tidy = false;    ///< Whether tags stand in the canonical layout.
    bool declares = true; ///< Whether the outermost elements declare all prefixes.
};

} // namespace test
