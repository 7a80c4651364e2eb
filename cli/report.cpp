#include "report.hpp"

#include "excerpt.hpp"
#include "files.hpp"
#include "terminal.hpp"

#include <cerrno>
#include <cstring>

#include <unistd.h>

namespace tool {

static void writeError(std::string_view text) {
    // Nobody can be told that this failed.
    (void)!writeAll(STDERR_FILENO, text);
}

static std::string heading(const Diagnostic &diagnostic, const Painter &painter) {
    std::string where = shown(std::string_view(diagnostic.file)) + ":";
    if (const auto &place = diagnostic.place)
        where += std::to_string(place->line) + ":" + std::to_string(place->column) + ":";
    std::string line = painter.bold(where) + " " + painter.red("error:") + " " + diagnostic.text;
    if (!diagnostic.code.empty()) line += " [" + diagnostic.code + "]";
    return line + "\n";
}

void report(const Diagnostic &diagnostic, Chars text) {
    const Painter painter(STDERR_FILENO);
    std::string message = heading(diagnostic, painter);
    const auto &place = diagnostic.place;
    if (place && static_cast<size_t>(place->offset) <= text.size())
        message += excerpt(text, *place, columns(STDERR_FILENO));
    if (!diagnostic.hint.empty()) message += painter.cyan("hint:") + " " + diagnostic.hint + "\n";
    writeError(message);
}

void reportFile(const std::string &file, std::string_view what, int error) {
    report({file, {}, std::string(what) + ": " + std::strerror(error), {}, {}}, {});
}

void reportUsage(std::string_view command, std::string_view text) {
    const std::string name(command);
    writeError(name + ": error: " + std::string(text) + "\nTry '" + name + " --help'.\n");
}

void writeOut(std::string_view text) {
    const int error = writeAll(STDOUT_FILENO, text);
    if (error == 0) return;
    if (error != EPIPE) reportFile("<stdout>", "cannot be written", error);
    throw Stop{fileTrouble};
}

} // namespace tool
