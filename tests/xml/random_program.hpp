// Random programs that use trees in every way.
#pragma once

#include "tests/xml/object_view.hpp"
#include "xml/xml.h"

#include <random>
#include <string>
#include <vector>

namespace test {

/// Keeps some references and takes random steps: looks at parts, copies, changes, converts and
/// drops them. Programs with one seed take the same steps as long as they see the same.
class Program {
  public:
    /// With `whole`, every document is made whole as soon as there is one. `texts` are documents,
    /// of which the program decodes one now and then. It uses namespaces unless names count.
    Program(uint32_t seed, Names countedNames, bool whole, std::vector<std::string> decodedTexts)
        : random(seed), names(countedNames), makesAll(whole), texts(std::move(decodedTexts)) {}

    void keep(voObj *adopted) { held[size_t(below(std::ssize(held)))] = Ref(adopted); }
    void step();

    /// All that the program sees in the end, and what it saw on the way.
    std::string view() const { return log + viewOf(held, names); }

    // For the steps:
    int below(int64_t end) { return int(random() % uint64_t(end)); }
    bool once(int times) { return below(times) == 0; }
    std::string word() { return std::string(1, char('a' + below(8))); }

    /// A kept object of this sort, borrowed; null if there is none.
    template <class T> T *find(voSort *sort) { return reinterpret_cast<T *>(find(sort)); }

  private:
    voObj *find(voSort *sort);
    void decodeOne();
    void look(voObj *object);
    void copy(voObj *object);
    void makeAll();
    void convert();
    void resolve(XML_DOCUMENT *document);
    void unresolve(XML_NS_DOCUMENT *document);
    void change(voObj **object);

    std::mt19937 random;
    Names names;
    bool makesAll;
    std::vector<std::string> texts;
    Objects held{8};
    std::string log;
};

} // namespace test
