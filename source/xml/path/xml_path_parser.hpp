// From the text of a path to its program.
#pragma once

#include "source/vo/vo_object.hpp"
#include "source/xml/path/xml_path_program.hpp"
#include "xml/xml_ns_namespace_map.h"

namespace xml {

/// What is wrong with a path, and where.
struct PathMistake {
    size_t place; ///< In bytes.
    const char *text;
    std::string_view detail; ///< A piece of the path that belongs to the text; may be empty.
};

/// Reads a path, which is UTF-8. Without bindings a prefix is a part of a name.
/// @return whether it is one; otherwise `mistake` is set.
bool parsePath(std::string_view path, XML_NS_NAMESPACE_MAP *optionalBindings, PathProgram &program,
               PathMistake &mistake);

} // namespace xml
