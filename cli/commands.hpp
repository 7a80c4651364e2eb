// The commands.
#pragma once

#include "report.hpp"
#include "request.hpp"

namespace tool {

Status check(const Request &request);
Status canonical(const Request &request);
Status format(const Request &request);
Status convert(const Request &request);
Status tree(const Request &request);
Status edit(const Request &request);
Status select(const Request &request);
Status diff(const Request &request);
Status json(const Request &request);
Status stats(const Request &request);
Status charsets(const Request &request);

} // namespace tool
