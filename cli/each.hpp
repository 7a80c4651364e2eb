// What all commands that take files do with them.
#pragma once

#include "errors.hpp"
#include "inputs.hpp"
#include "request.hpp"

#include <functional>

namespace tool {

struct Input {
    std::string path;
    std::string name; ///< For messages.
    Ref<voBuffer> bytes;
};

/// The files that the command line names; none is trouble as well.
Inputs inputsOf(const Request &request);

/// Reads each file and handles it, whatever becomes of the others.
Status forEach(const Request &request, const Inputs &inputs,
               const std::function<Status(const Input &)> &handle);

/// How a command decodes its inputs.
DecodeWish wishOf(const Request &request);

/// The text of an input for showing a line of it, with U+FFFD for bytes that are none.
Ref<voString> textOf(const Input &input);

/// Reports why an input is not acceptable.
Status refuse(const Request &request, const Input &input, const Failure &failure);

/// The same with all that is wrong in it. `text` is for showing lines of it, and may be empty.
Status refuse(const Input &input, const Errors &errors, voString *text);

using Refuse = Status (*)(const Request &, const Input &, const Failure &);

/// Reads and decodes each file and handles it; what cannot be decoded is refused instead.
Status forEachDecoded(const Request &request, const Inputs &inputs,
                      const std::function<Status(const Input &, Decoded &)> &handle,
                      Refuse refuseOne = refuse);

} // namespace tool
