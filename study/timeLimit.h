// When the clock of a scenario really ends a patient: the end is an hour on a dial of twelve, so it can come
// later than planned, or never.
#pragma once

#include <optional>

namespace timeLimit {

/// Simulated hours from the start at this hour (0 to 12) until the limit, for a planned length of so many
/// hours; nothing where the limit is never reached.
std::optional<int> hoursUntil(int startHour, int plannedHours);

}  // namespace timeLimit
