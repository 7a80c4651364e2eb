// Many files, on several threads, with results in the order of the files.
#pragma once

#include "report.hpp"

#include <functional>
#include <string>
#include <vector>

namespace tool {

struct Pace {
    size_t threads = 1;
    bool failFast = false; ///< Stop behind the first file that is not fine.
};

/// Calls `handle` for each file and gives the gravest status. What it writes appears file by file,
/// in the order of the files, whatever the number of threads. On a terminal a line tells how far it
/// has come when that takes long.
Status inOrder(const std::vector<std::string> &files,
               const std::function<Status(const std::string &)> &handle, Pace pace);

} // namespace tool
