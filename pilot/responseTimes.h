// How long a simulated subject takes before each act of its hands, and over each text that it has to read:
// draws from an ex-Gaussian, the sum of a normal and an exponential time, which has the long right tail of
// people's response times. So time pressure is real for a simulated subject too.
#pragma once

#include "pilot/chance.h"

struct ResponseTimes {
    double mu = 600;     ///< milliseconds: mean of the normal part
    double sigma = 150;  ///< its standard deviation
    double tau = 400;    ///< mean of the exponential part
};

namespace responseTimes {

/// Nobody answers faster, in milliseconds.
inline constexpr int least = 150;

/// Milliseconds before an act.
int draw(const ResponseTimes& times, Chance& chance);

}  // namespace responseTimes
