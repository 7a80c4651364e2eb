// What may help the author of a refused document.
#pragma once

#include "decode.hpp"
#include "encoding.hpp"

namespace tool {

/// One line of advice on a refused input, without a full stop; empty where the message says it all.
std::string hintFor(const Source &source, const Failure &failure);

} // namespace tool
