// What the user is told, and with which status a command ends.
#pragma once

#include "decode.hpp"
#include "text.hpp"

#include <chrono>

namespace tool {

/// Exit status; with several inputs the largest one.
enum Status {
    fine = 0,
    refused = 1,
    wrongUsage = 2,
    fileTrouble = 3,
    charsetTooSmall = 4,
    nothingSelected = 5,
    outOfMemory = 6
};

/// Ends a command before its time; what went wrong has been reported.
struct Stop {
    Status status;
};

/// The form of messages about inputs.
enum class Messages {
    forPeople,
    json, ///< One object a line.
    none
};

/// The form that messages take from now on.
void setMessages(Messages form);

enum class Severity {
    error,
    note ///< Worth knowing; the input is acceptable.
};

/// What is to be said about an input.
struct Diagnostic {
    std::string file;
    std::optional<Place> place;
    std::string text;
    std::string code; ///< May be empty, as may be the hint.
    std::string hint;
    Severity severity = Severity::error;
};

/// Writes a message to standard error in one piece. `text` is the input, for showing the line at
/// the place; it may be empty.
void report(const Diagnostic &diagnostic, Chars text);

/// Reports that a file cannot be read, or written, and gives the status for that.
Status reportFile(const std::string &file, std::string_view what, int error, std::string hint = {});

/// Reports that there is not enough memory for a file.
Status reportMemory(const std::string &file);

/// Reports wrong usage of `command`.
void reportUsage(std::string_view command, std::string_view text);

/// Writes to standard output. A failure is reported and ends the command; when the reader has gone
/// away, silently.
void writeOut(std::string_view text);

/// Output and messages that wait for their turn.
struct Transcript {
    std::string output, messages;
};

/// As long as it lives, what the thread that made it writes goes to a transcript.
class Redirect {
  public:
    explicit Redirect(Transcript &transcript);
    Redirect(const Redirect &) = delete;
    Redirect &operator=(const Redirect &) = delete;
    ~Redirect();
};

void writeTranscript(const Transcript &transcript);

/// Counts files. Where standard error is a terminal, a line shows the count once that takes longer
/// than two seconds; it gives way to whatever is written.
class Progress {
  public:
    explicit Progress(size_t files);
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;
    ~Progress();
    void step();

  private:
    using Clock = std::chrono::steady_clock;

    const size_t all;
    size_t done = 0;
    const bool isShown;
    Clock::time_point next = Clock::now() + std::chrono::seconds(2);
};

} // namespace tool
