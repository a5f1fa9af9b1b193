#include "pilot/responseTimes.h"

#include <algorithm>
#include <cmath>

namespace responseTimes {

int draw(const ResponseTimes& times, Chance& chance) {
    const double normal = chance::gaussian(chance, times.mu, times.sigma);
    return std::max(least, static_cast<int>(std::lround(normal + chance::exponential(chance, times.tau))));
}

}  // namespace responseTimes
