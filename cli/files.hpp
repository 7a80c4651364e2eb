// Files and streams. Failures are errno values, success is 0.
#pragma once

#include "ref.hpp"

#include <string>
#include <string_view>

namespace tool {

/// Makes sure that the three standard streams are taken, so that no file that is opened later can
/// receive what is meant for them, and that a limit on file sizes is an error like any other.
void prepareStreams();

/// Reads a whole file, or standard input for "-".
[[nodiscard]] int readFile(const std::string &path, Ref<voBuffer> &contents);

/// The open descriptor that a path such as /dev/stdout or /dev/fd/3 names, or -1. What stands
/// behind it must not be replaced as a file is.
int descriptorNamed(std::string_view path);

/// Writes everything.
[[nodiscard]] int writeAll(int descriptor, std::string_view bytes);

} // namespace tool
