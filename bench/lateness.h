// How late the ticks of a timer come.
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace lateness {

constexpr int interval = 12;  // milliseconds, the shortest of the health timer

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

/// The ticks of a timer as they come. A tick is due one interval after the one before was; after one that is
/// a whole interval late the toolkit drops what was missed and begins anew.
struct Record {
    int each;
    Clock::time_point due{};
    std::vector<double> times{};

    explicit Record(int milliseconds) : each(milliseconds) {}

    void tick() {
        const Clock::time_point now = Clock::now();
        const auto step = std::chrono::milliseconds(each);
        if (due == Clock::time_point{}) due = now;
        times.push_back(Milliseconds(now - due).count());
        due = now - due < step ? due + step : now + step;
    }

    /// Milliseconds, against the tick that came earliest.
    [[nodiscard]] std::vector<double> late() const {
        std::vector<double> result = times;
        if (result.empty()) return result;
        const double earliest = *std::ranges::min_element(times);
        for (double& time : result) time -= earliest;
        return result;
    }
};

/// The value below which that share of the values lies.
inline double at(std::vector<double> values, double share) {
    if (values.empty()) return 0;
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(share * static_cast<double>(values.size() - 1))];
}

}  // namespace lateness
