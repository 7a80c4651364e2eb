// What a call through the C++ header costs beside the same in C, on the same document in turn.
#include "voxml.hpp"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <string_view>

namespace {

constexpr int rounds = 15, calls = 200000;

std::size_t sum; ///< Of all lengths, so that no call is left out.

std::string_view view(XML_UTF8 text) { return {text.bytes, static_cast<size_t>(text.length)}; }

template <class Work> double secondsOf(const Work &work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Prints the best times for one call.
template <class C, class Cpp> void race(const char *name, const C &c, const Cpp &cpp) {
    double inC = 1e9, inCpp = 1e9;
    for (int i = 0; i < rounds; ++i) {
        inC = std::min(inC, secondsOf(c));
        inCpp = std::min(inCpp, secondsOf(cpp));
    }
    std::printf("%-28s C %6.1f ns  C++ %6.1f ns  %.2f\n", name, inC / calls * 1e9,
                inCpp / calls * 1e9, inCpp / inC);
}

template <class Work> auto repeated(const Work &work) {
    return [work] {
        for (int i = 0; i < calls; ++i)
            work();
    };
}

void addAttribute(XML_CURSOR *cursor, std::string_view name) {
    if (!xmlCursorFirstAttribute(cursor)) return;
    while (view(xmlCursorName(cursor)) != name)
        if (!xmlCursorNext(cursor)) break;
    sum += view(xmlCursorValueTryUnescape(cursor)).size();
    xmlCursorParent(cursor);
}

voxml::document sample() {
    std::string text = "<?xml version='1.0'?><rows>";
    for (int i = 0; i < calls; ++i)
        text += "<row id='" + std::to_string(i) + "' price='2.5'><name>abc</name></row>";
    return voxml::document::decode(text + "</rows>").value();
}

} // namespace

int main() {
    const voxml::document doc = sample();
    const voxml::view rows = *voxml::view(doc).root(), row = *rows.child("row");
    const voxml::element element = *doc.root();
    XML_CURSOR *const atRow = xmlCursorCreate(doc.get());
    xmlCursorFirstChild(atRow);
    xmlCursorFirstChild(atRow);

    race("name", repeated([&] { sum += view(xmlCursorName(atRow)).size(); }),
         repeated([&] { sum += row.name().size(); }));
    race("attribute by name", repeated([&] { addAttribute(atRow, "price"); }),
         repeated([&] { sum += row.attribute("price")->size(); }));
    race("copy of a view", repeated([&] { xmlCursorRelease(xmlCursorCreateHere(atRow)); }),
         repeated([&] { const voxml::view copy = row; }));
    race("child as an object",
         repeated([&] { xmlElementRelease(xmlElementChild(element.get(), "row")); }),
         repeated([&] { sum += element.child("row").has_value(); }));
    race(
        "next child and its name",
        [&] {
            XML_CURSOR *each = xmlCursorCreate(doc.get());
            xmlCursorFirstChild(each);
            for (int found = xmlCursorFirstChild(each); found; found = xmlCursorNext(each))
                sum += view(xmlCursorName(each)).size();
            xmlCursorRelease(each);
        },
        [&] {
            for (const auto &each : rows.items())
                sum += each.name().size();
        });
    race(
        "next child, two attributes",
        [&] {
            XML_CURSOR *each = xmlCursorCreate(doc.get());
            xmlCursorFirstChild(each);
            for (int found = xmlCursorFirstChild(each); found; found = xmlCursorNext(each)) {
                addAttribute(each, "id");
                addAttribute(each, "price");
            }
            xmlCursorRelease(each);
        },
        [&] {
            for (const auto &each : rows.elements())
                sum += each.attribute("id")->size() + each.attribute("price")->size();
        });
    xmlCursorRelease(atRow);
    return sum == 0;
}
