// A simulated subject's own source of chance, apart from the program's: the same seed, policy, scenario and
// subject give the same draws on every machine.
#pragma once

#include <cstdint>
#include <initializer_list>

struct Chance {
    std::uint64_t state = 0;
};

namespace chance {

/// The source that belongs to these numbers in this order.
Chance of(std::initializer_list<std::uint64_t> numbers);

/// Any 64 bits, for a source that is seeded by a number.
std::uint64_t bits(Chance& chance);
/// 0 up to but not including 1.
double uniform(Chance& chance);
/// 0 to `count` - 1.
int below(Chance& chance, int count);
double gaussian(Chance& chance, double mean, double deviation);
double exponential(Chance& chance, double mean);

}  // namespace chance
