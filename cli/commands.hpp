// The commands.
#pragma once

#include "report.hpp"

#include <string>
#include <vector>

namespace tool {

/// What the command line asks for. Each command looks at what concerns it.
struct Request {
    std::vector<std::string> files; ///< "-" is standard input; never empty.
    bool namespaces = false;
    bool failFast = false;
    bool noDeclaration = false;
    bool locations = false;
    std::string output; ///< Standard output when empty or "-".
    std::string charset;
};

Status check(const Request &request);
Status canonical(const Request &request);
Status convert(const Request &request);
Status tree(const Request &request);
Status stats(const Request &request);
Status charsets(const Request &request);

} // namespace tool
