#include "stats.hpp"

#include "text.hpp"
#include "walk.hpp"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <utility>

namespace tool {
namespace {

/// Length of a string that it releases.
int64_t lengthOf(voString *taken) { return voStringLength(Ref(taken)); }

struct Counter {
    Stats &stats;

    void node(XML_ELEMENT *element, size_t depth) {
        ++stats.elements;
        stats.attributes += xmlElementAttributesLength(element);
        stats.depth = std::max(stats.depth, static_cast<int64_t>(depth));
    }
    void node(XML_TEXT *text, size_t) {
        ++stats.texts;
        stats.textChars += lengthOf(xmlTextValue(text));
    }
    void node(XML_CDATA *cdata, size_t) {
        ++stats.cdatas;
        stats.cdataChars += lengthOf(xmlCdataValue(cdata));
    }
    void node(XML_COMMENT *, size_t) { ++stats.comments; }
    void node(XML_PROCESSING_INSTRUCTION *, size_t) { ++stats.instructions; }
};

} // namespace

void Stats::count(XML_DOCUMENT *document) {
    Counter counter{*this};
    walk<Plain>(Ref(xmlDocumentItems(document)), counter);
}

void Stats::add(const Stats &other) {
    for (auto figure :
         {&Stats::elements, &Stats::attributes, &Stats::texts, &Stats::textChars, &Stats::cdatas,
          &Stats::cdataChars, &Stats::comments, &Stats::instructions, &Stats::bytes})
        this->*figure += other.*figure;
    depth = std::max(depth, other.depth);
    time += other.time;
}

std::string Stats::toString() const {
    const std::pair<const char *, int64_t> counts[] = {
        {"elements", elements},     {"attributes", attributes},
        {"text items", texts},      {"text characters", textChars},
        {"CDATA sections", cdatas}, {"CDATA characters", cdataChars},
        {"comments", comments},     {"processing instructions", instructions},
        {"maximum depth", depth},   {"bytes", bytes},
    };
    constexpr int valueColumn = 25;
    std::ostringstream out;
    out << std::left << std::fixed;
    for (auto [name, count] : counts)
        out << std::setw(valueColumn) << std::string(name) + ":" << count << '\n';
    out << std::setw(valueColumn) << "decode time:" << std::setprecision(3) << time.count() * 1e3
        << " ms\n";
    if (time.count() > 0)
        out << std::setw(valueColumn) << "throughput:" << std::setprecision(1)
            << static_cast<double>(bytes) / time.count() / 1e6 << " MB/s\n";
    return out.str();
}

} // namespace tool
