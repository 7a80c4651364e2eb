// The object that holds the program of a path.
#pragma once

#include "source/xml/path/xml_path_program.hpp"
#include "xml/xml_path.h"

namespace xml {

const PathProgram &programOf(XML_PATH *path);

} // namespace xml
