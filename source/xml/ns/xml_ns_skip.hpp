// The scanner for names without colons.
#pragma once

#include <cstdint>

extern "C" {
/// How many of the code points at `chs` make up an NCName; 0 when they do not begin with one.
/// Nothing behind `length` is read. A negative length aborts, and so does a null run that is not
/// empty.
int64_t xml___NsSkipNcname(const uint32_t *chs, int64_t length);
}
