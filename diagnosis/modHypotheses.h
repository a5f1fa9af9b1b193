// The hypotheses: the rows of the diagnosis dialog, how they are added and removed, which names may stand,
// and how the rows are saved and put back. Their beliefs are in modBeliefs.
#pragma once

#include "platform/checkedInteger.h"

namespace modHypotheses {

/// Loads the dialog if this patient has not used it yet. Whoever touches the dialog first calls it. Base
/// rates that yoked meters cannot hold fault (Invalid property value).
void ensureLoaded();

/// Shows the meter of a row while its name is on its list, case included.
void checkHypothesisName(Int16 row);

/// Judges rows 0 to `last`, or in the all-diseases mode whether any belief is given; the reason for a
/// refusal is in lblError.
bool validateHypotheses(Int16 last);

void saveHypotheses();

/// Puts the rows back to the last save. A saved belief that a meter refuses on the way, since yoked meters
/// push each other here too, has all rows put back once more without yoking, each meter at its saved value.
void restoreHypotheses();

/// Click of cmdAdd(row): adds or removes row + 1, by the button's caption. An added row that would push a
/// meter beyond its limits is taken back, and lblError says so.
void addOrRemove(Int16 row);

}  // namespace modHypotheses
