// What the benches of one core share: processor time, so that what else the machine does is not measured, and
// what is told of several runs.
#pragma once

#include <algorithm>
#include <ctime>
#include <vector>

namespace medians {

/// Processor time that the work took, in seconds.
template <class Work>
double seconds(Work work) {
    timespec from{};
    timespec to{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &from);
    work();
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &to);
    return static_cast<double>(to.tv_sec - from.tv_sec) +
           1e-9 * static_cast<double>(to.tv_nsec - from.tv_nsec);
}

inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

inline double greatest(const std::vector<double>& values) {
    return *std::max_element(values.begin(), values.end());
}

}  // namespace medians
