// Paths that the command line names.
#pragma once

#include "decode.hpp"
#include "request.hpp"

#include "xml/xml_path.h"

#include <optional>
#include <string>

namespace tool {

using Bindings = Ref<XML_NS_NAMESPACE_MAP>;

/// A path that cannot be read, or another mistake in the command line.
struct Mistake {
    std::string text;
};

struct Pair {
    std::string name, value;
};

/// What an argument such as name=value says.
std::optional<Pair> pairIn(const std::string &argument);

/// The bindings of the command line, and of `_` to the default namespace of a document.
Bindings bindingsOf(const Request &request, std::string_view defaultNamespace);

Ref<XML_PATH> compile(const std::string &path, XML_NS_NAMESPACE_MAP *bindings);

/// What the outermost elements declare.
std::string defaultNamespaceOf(XML_DOCUMENT *document);

} // namespace tool
