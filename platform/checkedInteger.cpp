#include "platform/checkedInteger.h"

#include <cmath>

namespace {

template <class T>
Checked<T> narrow(double whole) {
    // Written so that a value that is no number fails the test too.
    const bool fits = whole >= std::numeric_limits<T>::min() && whole <= std::numeric_limits<T>::max();
    if (!fits) raiseFault(FaultNumber::Overflow);
    return static_cast<T>(whole);
}

double nearestEven(double value) {
    const double below = std::floor(value);
    const double gap = value - below;
    if (gap != 0.5) return gap < 0.5 ? below : below + 1.0;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1.0;
}

}  // namespace

Int16 round16(double value) { return narrow<std::int16_t>(nearestEven(value)); }
Int32 round32(double value) { return narrow<std::int32_t>(nearestEven(value)); }
Int16 floor16(double value) { return narrow<std::int16_t>(std::floor(value)); }
Int32 floor32(double value) { return narrow<std::int32_t>(std::floor(value)); }
