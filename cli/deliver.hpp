// Writing documents where the command line says.
#pragma once

#include "each.hpp"

namespace tool {

/// Why these documents cannot be written where the request says; empty when they can.
std::string whyNoOutput(const Request &request, const std::vector<std::string> &files);

/// How a command encodes.
Ref<XML_OPTIONS> encodingOf(const Request &request);

/// Reports a text that the character set of the output lacks characters for.
Status refuseMisfit(const Request &request, const Input &input, XML_DOCUMENT *document);

/// Writes a document that came of an input, or reports why that cannot be done.
Status deliver(const Request &request, const Input &input, XML_DOCUMENT *document);

/// Writes bytes that came of an input, likewise.
Status deliver(const Request &request, const Input &input, voBuffer *bytes);

} // namespace tool
