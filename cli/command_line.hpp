// The command line: the commands and their options.
#pragma once

#include "report.hpp"
#include "usage.hpp"

#include <string>
#include <vector>

namespace tool {

/// Does what the arguments ask for.
Status runCommandLine(std::vector<std::string> arguments);

/// What the command line offers.
ProgramUsage usageOfProgram();

} // namespace tool
