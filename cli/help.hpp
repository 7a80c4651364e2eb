// Help on the terminal.
#pragma once

#include "terminal.hpp"
#include "usage.hpp"

namespace tool {

/// What --help prints, in lines of at most so many columns where words allow that.
std::string helpOf(const ProgramUsage &usage, int columns, const Painter &painter);
std::string helpOf(const CommandUsage &usage, int columns, const Painter &painter);

} // namespace tool
