// The files that a command line names.
#pragma once

#include "report.hpp"

#include <string>
#include <vector>

namespace tool {

struct Inputs {
    std::vector<std::string> files; ///< "-" is standard input.
    Status status = fine;           ///< fileTrouble when a folder could not be read.
};

/// What `paths` name. Folders stand for the files in them and in the folders below whose names
/// match one of `patterns`, in the order of their paths; links to folders are not followed. What
/// cannot be read is reported.
Inputs inFolders(const std::vector<std::string> &paths, const std::vector<std::string> &patterns);

} // namespace tool
