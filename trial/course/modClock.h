// The simulated clock: a twelve-hour wall clock that moves one simulated minute a tick and gives each
// patient a time of day and a time limit. Simulated time is exactly the count of ticks handled.
#pragma once

#include <string>

#include "platform/checkedInteger.h"

namespace modClock {

/// The start of a patient's clock, run before each patient: the Click of cmdStart, or directly when the
/// options dialog is not to be shown. A start hour above 12 or minute above 59 is refused with a box, and
/// no clock is started. A start hour or minute below 0 passes.
void startOptions();

/// Puts clock and time limit on `startHour`:`startMinute`, rate (simulated hours per real minute) and
/// length (real minutes). A start hour of 0 is changed to 12 after the end has been computed from the 0.
/// More than 546 simulated hours fault with Overflow.
void initClock(Int16& startHour, Int16 startMinute, Int16 rate, Int16 length);

/// One simulated minute on; returns the time as text. Ends the trial when the dial shows the end time for
/// the last time. The end is compared on the dial and never by elapsed time, so an end hour of 0 is never
/// met.
std::string tickClock();

}  // namespace modClock
