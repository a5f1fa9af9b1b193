// How late the ticks of a timer come.
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace lateness {

constexpr int interval = 12;  // milliseconds, the shortest of the health timer

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

/// The ticks of a timer as they come. How late one is counts from an interval after the one before: after a
/// tick that was late the toolkit goes back to its grid or, where it lost whole ticks, begins a new one.
struct Record {
    Clock::time_point before{};
    std::vector<double> late{};  ///< milliseconds

    void tick() {
        const Clock::time_point now = Clock::now();
        const double since = Milliseconds(now - before).count();
        if (before != Clock::time_point{}) late.push_back(std::max(0.0, since - interval));
        before = now;
    }
};

/// The value below which that share of the values lies.
inline double at(std::vector<double> values, double share) {
    if (values.empty()) return 0;
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
}

}  // namespace lateness
