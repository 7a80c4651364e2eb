// What the user is told, and with which status a command ends.
#pragma once

#include "decode.hpp"
#include "text.hpp"

namespace tool {

/// Exit status; with several inputs the largest one.
enum Status { fine = 0, refused = 1, wrongUsage = 2, fileTrouble = 3, charsetTooSmall = 4 };

/// Ends a command before its time; what went wrong has been reported.
struct Stop {
    Status status;
};

/// What is wrong with an input.
struct Diagnostic {
    std::string file;
    std::optional<Place> place;
    std::string text;
    std::string code; ///< May be empty, as may be the hint.
    std::string hint;
};

/// Writes a message to standard error in one piece. `text` is the input, for showing the line at
/// the place; it may be empty.
void report(const Diagnostic &diagnostic, Chars text);

/// Reports that a file cannot be read, or written.
void reportFile(const std::string &file, std::string_view what, int error);

/// Reports wrong usage of `command`.
void reportUsage(std::string_view command, std::string_view text);

/// Writes to standard output. A failure is reported and ends the command; when the reader has gone
/// away, silently.
void writeOut(std::string_view text);

} // namespace tool
