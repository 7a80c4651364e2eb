#include "bench/output.hpp"

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace bench {
namespace {

constexpr int columnWidth = 10;

std::vector<std::string> worksOf(std::span<const Figure> figures) {
    std::vector<std::string> works;
    for (const Figure &figure : figures)
        if (std::find(works.begin(), works.end(), figure.work) == works.end())
            works.push_back(figure.work);
    return works;
}

const Figure *find(std::span<const Figure> figures, const std::string &work,
                   const std::string &contestant) {
    for (const Figure &figure : figures)
        if (figure.work == work && figure.contestant == contestant) return &figure;
    return nullptr;
}

/// A unit in the file and in the table.
struct UnitNames {
    const char *recorded, *shown;
};

UnitNames namesOf(Unit unit) {
    switch (unit) {
    case Unit::secondsForBytes:
        return {"seconds for bytes", "MB/s"};
    case Unit::secondsForDocuments:
        return {"seconds for documents", "ns each"};
    default:
        return {"bytes for bytes", "bytes per byte"};
    }
}

void printCell(const Figure *figure) {
    if (!figure)
        std::printf("%*s", columnWidth, "");
    else if (figure->unit == Unit::secondsForBytes)
        std::printf("%*.0f", columnWidth, 1e-6 / figure->bestForOne());
    else if (figure->unit == Unit::secondsForDocuments)
        std::printf("%*.0f", columnWidth, 1e9 * figure->bestForOne());
    else
        std::printf("%*.2f", columnWidth, figure->bestForOne());
}

std::string quoted(const std::string &text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') result += '\\';
        if (static_cast<unsigned char>(c) >= ' ') result += c;
    }
    return result + '"';
}

std::string number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", value);
    return text;
}

std::string toJson(const Figure &figure) {
    std::string rounds;
    for (const double round : figure.rounds)
        rounds += (rounds.empty() ? "" : ", ") + number(round);
    return "{\"group\": " + quoted(figure.group) + ", \"work\": " + quoted(figure.work) +
           ", \"contestant\": " + quoted(figure.contestant) +
           ", \"unit\": " + quoted(namesOf(figure.unit).recorded) +
           ", \"amount\": " + std::to_string(figure.amount) + ", \"best\": " + number(figure.best) +
           ", \"rounds\": [" + rounds + "]}";
}

} // namespace

void printGroup(const Group &group) {
    std::printf("\n%s: %zu files, %.2f MB", group.name.c_str(), group.files.size(),
                double(group.bytes()) * 1e-6);
    const char *separator = "; refused by ";
    for (const auto &[contestant, count] : group.refusals) {
        std::printf("%s%s %d", separator, contestant.c_str(), count);
        separator = ", ";
    }
    std::printf("\n");
}

void printTable(std::span<const Figure> figures) {
    std::printf("%-12s", "");
    for (const Contestant *contestant : contestants)
        std::printf("%*s", columnWidth, contestant->name);
    std::printf("\n");
    for (const std::string &work : worksOf(figures)) {
        std::printf("%-12s", work.c_str());
        const Figure *last = nullptr;
        for (const Contestant *contestant : contestants) {
            const Figure *figure = find(figures, work, contestant->name);
            printCell(figure);
            if (figure) last = figure;
        }
        std::printf("  %s\n", last ? namesOf(last->unit).shown : "");
    }
    std::fflush(stdout);
}

void Record::add(const Group &group) {
    std::string refusals;
    for (const auto &[contestant, count] : group.refusals)
        refusals +=
            (refusals.empty() ? "" : ", ") + quoted(contestant) + ": " + std::to_string(count);
    groups += (groups.empty() ? "" : ",\n    ");
    groups +=
        "{\"name\": " + quoted(group.name) + ", \"files\": " + std::to_string(group.files.size()) +
        ", \"bytes\": " + std::to_string(group.bytes()) + ", \"refusals\": {" + refusals + "}}";
}

bool Record::write(const std::string &path, int rounds, const Figures &figures) const {
    std::ofstream out(path);
    out << "{\"rounds\": " << rounds << ",\n \"groups\": [\n    " << groups
        << "],\n \"figures\": [";
    const char *separator = "\n    ";
    for (const Figure &figure : figures) {
        out << separator << toJson(figure);
        separator = ",\n    ";
    }
    out << "]}\n";
    return bool(out.flush());
}

} // namespace bench
