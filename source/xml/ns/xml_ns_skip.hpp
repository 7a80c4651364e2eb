// The scanner for names without colons.
#pragma once

#include "source/xml/base/xml_skip.hpp"

#include <algorithm>
#include <span>

extern "C" {
/// How many of the code points at `chs` make up an NCName; 0 when they do not begin with one.
/// Nothing behind `length` is read. A negative length aborts, and so does a null run that is not
/// empty.
int64_t xml___NsSkipNcname(const uint32_t *chs, int64_t length);
}

namespace xml {

/// Whether all of the run, in code points or UTF-8, is an NCName.
template <class Unit> bool isNcname(std::span<const Unit> run) {
    const Unit *begin = run.data(), *end = begin + run.size();
    return begin < end && skipName(begin, end) == end && std::find(begin, end, Unit{':'}) == end;
}

} // namespace xml
