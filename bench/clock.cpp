#include "bench/clock.hpp"

#include <sched.h>

#include <ctime>

namespace bench {
namespace {

double secondsOn(clockid_t clock) {
    timespec time;
    clock_gettime(clock, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

std::vector<int> allowedProcessors() {
    cpu_set_t set;
    CPU_ZERO(&set);
    sched_getaffinity(0, sizeof set, &set);
    std::vector<int> allowed;
    for (int i = 0; i < CPU_SETSIZE; ++i)
        if (CPU_ISSET(i, &set)) allowed.push_back(i);
    return allowed;
}

} // namespace

double processorSeconds() { return secondsOn(CLOCK_THREAD_CPUTIME_ID); }

double elapsedSeconds() { return secondsOn(CLOCK_MONOTONIC); }

const std::vector<int> &processors() {
    static const std::vector<int> allowed = allowedProcessors();
    return allowed;
}

void stayOn(int processor) {
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(processor, &set);
    sched_setaffinity(0, sizeof set, &set);
}

} // namespace bench
