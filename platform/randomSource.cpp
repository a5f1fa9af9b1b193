#include "platform/randomSource.h"

#include <cmath>
#include <deque>

namespace randomSource {

namespace {

std::uint64_t state = 0;
std::deque<double> queued;

/// The finishing step of SplitMix64: spreads neighbouring numbers over the whole range.
std::uint64_t mixed(std::uint64_t z) {
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31U);
}

constexpr std::uint64_t step = 0x9E3779B97F4A7C15ULL;

}  // namespace

void fixState(std::uint64_t seed) {
    state = mixed(seed + step);
    queued.clear();
}

void reseed(std::uint64_t number) { state = mixed(state ^ (number + step)); }

double draw() {
    if (!queued.empty()) {
        const double next = queued.front();
        queued.pop_front();
        return next;
    }
    state += step;
    // 24 bits, so that the value is the same in single and in double precision.
    return static_cast<double>(mixed(state) >> 40U) / 16777216.0;
}

int drawPercent() { return static_cast<int>(std::floor(draw() * 100.0)); }

void queueDraws(std::span<const double> draws) { queued.insert(queued.end(), draws.begin(), draws.end()); }

void clearQueue() { queued.clear(); }

}  // namespace randomSource
