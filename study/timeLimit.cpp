#include "study/timeLimit.h"

#include "platform/dial.h"

namespace timeLimit {

std::optional<int> hoursUntil(int startHour, int plannedHours) {
    constexpr int hours = dial::hours;
    const int sum = startHour + plannedHours;
    const int end = sum % hours;
    if (end == 0) return {};  // the dial shows 12 and never 0
    const int first = (end - startHour % hours + hours) % hours;
    // The end is let go by once for each full round of start and length.
    return (first == 0 ? hours : first) + hours * (sum / hours);
}

}  // namespace timeLimit
