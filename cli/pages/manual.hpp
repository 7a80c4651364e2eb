// The manual page.
#pragma once

#include "usage.hpp"

namespace tool {

/// Fills in the places of a page in mdoc.
std::string manualOf(const ProgramUsage &usage, const std::string &source);

} // namespace tool
