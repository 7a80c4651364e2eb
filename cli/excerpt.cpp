#include "excerpt.hpp"

#include <algorithm>

namespace tool {
namespace {

constexpr std::string_view ellipsis = "...";

/// The part of a line that is shown.
struct Window {
    size_t begin, end;
    bool cutBefore, cutAfter;
};

/// The room that a character takes in a line. A combining character takes some as well, so that a
/// line of nothing else is cut, too.
int cost(uint32_t ch) {
    constexpr int tabStop = 8;
    return ch == '\t' ? tabStop : std::max(1, shownWidth(ch));
}

bool inLine(Chars text, size_t at) { return at < text.size() && !isNewline(text[at]); }

/// Two thirds of the room may lie before the place; the text behind it takes what is left.
Window windowAround(Chars text, size_t start, size_t at, int room) {
    Window window{at, at, false, false};
    int used = 0;
    while (window.begin > start && used + cost(text[window.begin - 1]) <= room * 2 / 3)
        used += cost(text[--window.begin]);
    while (inLine(text, window.end) && used + cost(text[window.end]) <= room)
        used += cost(text[window.end++]);
    window.cutBefore = window.begin > start;
    window.cutAfter = inLine(text, window.end);
    // A combining character must not settle on the ellipsis.
    while (window.cutBefore && window.begin < at && shownWidth(text[window.begin]) == 0)
        ++window.begin;
    return window;
}

/// The character that carries the one at `at`, when that is a combining one.
size_t carrier(Chars text, size_t begin, size_t at) {
    while (at > begin && inLine(text, at) && shownWidth(text[at]) == 0)
        --at;
    return at;
}

} // namespace

std::string excerpt(Chars text, Place place, int columns) {
    const size_t start = static_cast<size_t>(place.offset - (place.column - 1));
    size_t at = static_cast<size_t>(place.offset);
    // The second half of a CR LF stands at the end of its line, too.
    if (at > start && at < text.size() && text[at] == '\n' && text[at - 1] == '\r') --at;

    const int room = columns - 2 * static_cast<int>(ellipsis.size());
    const Window window = windowAround(text, start, at, room);
    const size_t caret = carrier(text, window.begin, at);
    std::string line(window.cutBefore ? ellipsis : "");
    std::string caretLine(line.size(), ' ');
    for (uint32_t ch : text.subspan(window.begin, window.end - window.begin))
        line += ch == '\t' ? "\t" : shown(ch);
    for (uint32_t ch : text.subspan(window.begin, caret - window.begin))
        caretLine += ch == '\t' ? "\t" : std::string(static_cast<size_t>(shownWidth(ch)), ' ');
    line += window.cutAfter ? ellipsis : "";
    return line + "\n" + caretLine + "^\n";
}

} // namespace tool
