#include "report.hpp"

#include "excerpt.hpp"
#include "files.hpp"
#include "json_text.hpp"
#include "terminal.hpp"

#include <cerrno>
#include <cstring>
#include <utility>

#include <unistd.h>

namespace tool {

static Messages messages = Messages::forPeople;

void setMessages(Messages form) { messages = form; }

// ---------------------------------------------------------------- where texts go

static thread_local Transcript *redirected = nullptr;

Redirect::Redirect(Transcript &transcript) { redirected = &transcript; }
Redirect::~Redirect() { redirected = nullptr; }

/// Whether the line of a Progress stands on the terminal.
static bool progressStands = false;

static void hideProgress() {
    if (std::exchange(progressStands, false)) (void)!writeAll(STDERR_FILENO, "\r\033[K");
}

static void writeError(std::string_view text) {
    if (redirected) {
        redirected->messages += text;
        return;
    }
    hideProgress();
    // Nobody can be told that this failed.
    (void)!writeAll(STDERR_FILENO, text);
}

void writeOut(std::string_view text) {
    if (redirected) {
        redirected->output += text;
        return;
    }
    hideProgress();
    const int error = writeAll(STDOUT_FILENO, text);
    if (error == 0) return;
    if (error != EPIPE) reportFile("<stdout>", "cannot be written", error);
    throw Stop{fileTrouble};
}

void writeTranscript(const Transcript &transcript) {
    if (!transcript.output.empty()) writeOut(transcript.output);
    if (!transcript.messages.empty()) writeError(transcript.messages);
}

Progress::Progress(size_t files)
    : all(files), isShown(messages == Messages::forPeople && isatty(STDERR_FILENO)) {}

Progress::~Progress() { hideProgress(); }

void Progress::step() {
    ++done;
    if (!isShown || Clock::now() < next) return;
    next = Clock::now() + std::chrono::milliseconds(100);
    const std::string line = std::to_string(done) + " of " + std::to_string(all) + " files";
    progressStands = true;
    (void)!writeAll(STDERR_FILENO, "\r" + line + "\033[K");
}

// ---------------------------------------------------------------- messages

static std::string_view nameOf(Severity severity) {
    return severity == Severity::error ? "error" : "note";
}

static std::string toJson(const Diagnostic &diagnostic) {
    std::string line = "{\"file\":" + jsonString(shown(std::string_view(diagnostic.file)));
    if (const auto &place = diagnostic.place)
        line += ",\"line\":" + std::to_string(place->line) +
                ",\"column\":" + std::to_string(place->column) +
                ",\"offset\":" + std::to_string(place->offset);
    line += ",\"severity\":" + jsonString(nameOf(diagnostic.severity));
    line += ",\"message\":" + jsonString(diagnostic.text);
    if (!diagnostic.code.empty()) line += ",\"code\":" + jsonString(diagnostic.code);
    if (!diagnostic.hint.empty()) line += ",\"hint\":" + jsonString(diagnostic.hint);
    return line + "}\n";
}

static std::string heading(const Diagnostic &diagnostic, const Painter &painter) {
    std::string where = shown(std::string_view(diagnostic.file)) + ":";
    if (const auto &place = diagnostic.place)
        where += std::to_string(place->line) + ":" + std::to_string(place->column) + ":";
    const std::string label = std::string(nameOf(diagnostic.severity)) + ":";
    const bool isError = diagnostic.severity == Severity::error;
    std::string line = painter.bold(where) + " " +
                       (isError ? painter.red(label) : painter.magenta(label)) + " " +
                       diagnostic.text;
    if (!diagnostic.code.empty()) line += " [" + diagnostic.code + "]";
    return line + "\n";
}

void report(const Diagnostic &diagnostic, Chars text) {
    if (messages == Messages::none) return;
    if (messages == Messages::json) return writeError(toJson(diagnostic));
    const Painter painter(STDERR_FILENO);
    std::string message = heading(diagnostic, painter);
    const auto &place = diagnostic.place;
    if (place && static_cast<size_t>(place->offset) <= text.size())
        message += excerpt(text, *place, columns(STDERR_FILENO));
    if (!diagnostic.hint.empty())
        message += painter.magenta("hint:") + " " + diagnostic.hint + "\n";
    writeError(message);
}

Status reportFile(const std::string &file, std::string_view what, int error, std::string hint) {
    if (error == ENOMEM) return reportMemory(file);
    report({file, {}, std::string(what) + ": " + std::strerror(error), {}, std::move(hint)}, {});
    return fileTrouble;
}

Status reportMemory(const std::string &file) {
    report({file, {}, "out of memory", {}, {}}, {});
    return outOfMemory;
}

void reportUsage(std::string_view command, std::string_view text) {
    const std::string name(command);
    writeError(name + ": error: " + std::string(text) + "\nTry '" + name + " --help'.\n");
}

} // namespace tool
