// When the time limit of a scenario comes. The dial has twelve hours and the limit is an hour on it, so that
// start and length decide whether it comes at the planned time.
#pragma once

namespace timeLimit {

enum class Comes { AsPlanned, TwelveHoursLate, Never };

/// `hours`: the planned length, simulated.
Comes whenComes(int startHour, int hours);

}  // namespace timeLimit
