// Time, and the processors that it is spent on.
#pragma once

#include <vector>

namespace bench {

/// Processor time that the calling thread has used, in seconds.
double processorSeconds();

double elapsedSeconds();

/// The processors that the process was allowed when this was called first.
const std::vector<int> &processors();

/// Keeps the calling thread, and the threads and processes that it starts, on one processor.
void stayOn(int processor);

} // namespace bench
