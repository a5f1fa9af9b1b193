#include "pilot/chance.h"

#include <cmath>
#include <numbers>

namespace chance {

namespace {

constexpr std::uint64_t step = 0x9E3779B97F4A7C15ULL;

/// The finishing step of SplitMix64.
std::uint64_t mixed(std::uint64_t z) {
    z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27U)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31U);
}

}  // namespace

Chance of(std::initializer_list<std::uint64_t> numbers) {
    Chance chance;
    for (const std::uint64_t number : numbers)
        chance.state = mixed(chance.state + step) ^ mixed(number + step);
    return chance;
}

std::uint64_t bits(Chance& chance) {
    chance.state += step;
    return mixed(chance.state);
}

double uniform(Chance& chance) { return static_cast<double>(bits(chance) >> 11U) * 0x1.0p-53; }

int below(Chance& chance, int count) { return static_cast<int>(uniform(chance) * count); }

double gaussian(Chance& chance, double mean, double deviation) {
    const double radius = std::sqrt(-2.0 * std::log(1.0 - uniform(chance)));
    return mean + deviation * radius * std::cos(2.0 * std::numbers::pi * uniform(chance));
}

double exponential(Chance& chance, double mean) { return -mean * std::log(1.0 - uniform(chance)); }

}  // namespace chance
