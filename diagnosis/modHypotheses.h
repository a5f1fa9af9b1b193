// The hypotheses: the rows of the diagnosis dialog, their beliefs, how yoked meters push each other, how
// beliefs are rescaled, which names may stand, and how the rows are saved and put back. A change of a meter
// runs beliefChanged at once, inside the assignment; the yoking relies on that.
#pragma once

#include "platform/checkedInteger.h"

namespace modHypotheses {

/// Loads the dialog if this patient has not used it yet. Whoever touches the dialog first calls it.
void ensureLoaded();

/// Row `row` has a new belief: with yoked meters the excess over 100 is taken from the neighbours, then the
/// caption follows and the buttons are enabled. Lowering a meter raises no other. A neighbour that cannot
/// give enough faults with Invalid property value.
void beliefChanged(Int16 row);

/// Shows the meter of a row while its name is on its list, case included.
void checkHypothesisName(Int16 row);

/// Rescales the beliefs to a sum of 100, unless they add up to 90 to 100 or to nothing. Each is rounded
/// down; one that falls below its meter's least value faults with Invalid property value.
void normalizeBeliefs();

/// Judges rows 0 to `last`, or in the all-diseases mode whether any belief is given; the reason for a
/// refusal is in lblError.
bool validateHypotheses(Int16 last);

void saveHypotheses();
void restoreHypotheses();

/// Click of cmdAdd(row): adds or removes row + 1, by the button's caption.
void addOrRemove(Int16 row);

}  // namespace modHypotheses
