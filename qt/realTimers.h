// The forms' timers on the desktop: a precise timer of the toolkit for each. Ticks that the desktop delays
// or merges are lost, as the simulation wants it.
#pragma once

namespace realTimers {

/// Makes the timers and watches the records.
void build();

/// Whether what happens now comes of a timer and not of the person.
bool isFiring();

}  // namespace realTimers
