// What shells offer when a command line is typed.
#pragma once

#include "usage.hpp"

namespace tool {

std::string bashCompletion(const ProgramUsage &usage);
std::string zshCompletion(const ProgramUsage &usage);
std::string fishCompletion(const ProgramUsage &usage);

} // namespace tool
