#include "terminal.hpp"

#include <algorithm>
#include <cstdlib>

#include <sys/ioctl.h>
#include <unistd.h>

namespace tool {

static std::string_view environment(const char *name) {
    const char *value = std::getenv(name);
    return value ? value : "";
}

int columns(int descriptor) {
    constexpr int fallback = 100, least = 20;
    if (const int wished = std::atoi(std::string(environment("COLUMNS")).c_str()); wished > 0)
        return std::max(wished, least);
    winsize size{};
    if (ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return fallback;
    return std::max<int>(size.ws_col, least);
}

static Colors wished = Colors::automatic;

void setColors(Colors colors) { wished = colors; }

static bool isWelcome(int descriptor) {
    return environment("NO_COLOR").empty() && environment("TERM") != "dumb" && isatty(descriptor);
}

Painter::Painter(int descriptor)
    : enabled(wished == Colors::always || (wished == Colors::automatic && isWelcome(descriptor))) {}

std::string Painter::paint(std::string_view style, std::string_view text) const {
    std::string painted;
    if (enabled) painted.append("\033[").append(style).append("m");
    painted.append(text);
    if (enabled) painted.append("\033[m");
    return painted;
}

} // namespace tool
