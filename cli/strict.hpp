// Documents judged by XML 1.0 alone, as other readers judge them.
#pragma once

#include "each.hpp"

namespace tool {

/// Reports what is wrong with an input for Expat, whose verdict counts, with the decoder's errors
/// where there are any: they say more. A note tells of inputs that are well-formed but refused by
/// the decoder.
Status checkStrictly(const Request &request, const Input &input);

/// Reports why an input cannot be imported, with all errors where they are the document's own.
Status refuseImport(const Request &request, const Input &input, const Failure &failure);

} // namespace tool
