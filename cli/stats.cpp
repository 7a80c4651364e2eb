#include "stats.hpp"

#include "cursor.hpp"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <utility>

namespace tool {

static constexpr ByItemType<int64_t Stats::*> counters = {
    &Stats::elements, &Stats::instructions, &Stats::comments, &Stats::texts, &Stats::cdatas};

/// Characters of UTF-8: the bytes that do not continue another.
static int64_t charsIn(XML_UTF8 text) {
    return std::ranges::count_if(view(text), [](char byte) { return (byte & 0xC0) != 0x80; });
}

void Stats::count(XML_DOCUMENT *document) {
    Ref cursor(xmlCursorCreate(document));
    const auto countOne = [&](size_t itsDepth) {
        const XML_ITEM_TYPE type = xmlCursorType(cursor);
        ++(this->*of(counters, type));
        if (type == XML_ITEM_TYPE_ELEMENT) depth = std::max(depth, static_cast<int64_t>(itsDepth));
        if (type == XML_ITEM_TYPE_TEXT) textChars += charsIn(xmlCursorValue(cursor));
        if (type == XML_ITEM_TYPE_CDATA) cdataChars += charsIn(xmlCursorValue(cursor));
        visitAttributes([&] { ++attributes; }, cursor);
    };
    walk(countOne, cursor);
}

/// All figures but the time, in the order in which they are shown.
static constexpr std::pair<const char *, int64_t Stats::*> figures[] = {
    {"elements", &Stats::elements},     {"attributes", &Stats::attributes},
    {"text items", &Stats::texts},      {"text characters", &Stats::textChars},
    {"CDATA sections", &Stats::cdatas}, {"CDATA characters", &Stats::cdataChars},
    {"comments", &Stats::comments},     {"processing instructions", &Stats::instructions},
    {"maximum depth", &Stats::depth},   {"bytes", &Stats::bytes},
};

void Stats::add(const Stats &other) {
    const int64_t deepest = std::max(depth, other.depth);
    for (const auto &[name, figure] : figures)
        this->*figure += other.*figure;
    depth = deepest;
    time += other.time;
}

std::string Stats::toString() const {
    constexpr int valueColumn = 25;
    std::ostringstream out;
    out << std::left << std::fixed;
    for (const auto &[name, figure] : figures)
        out << std::setw(valueColumn) << std::string(name) + ":" << this->*figure << '\n';
    out << std::setw(valueColumn) << "decode time:" << std::setprecision(3) << time.count() * 1e3
        << " ms\n";
    if (time.count() > 0)
        out << std::setw(valueColumn) << "throughput:" << std::setprecision(1)
            << static_cast<double>(bytes) / time.count() / 1e6 << " MB/s\n";
    return out.str();
}

} // namespace tool
