// The beliefs on the meters: how yoked meters push each other, how beliefs are rescaled, and what happens
// when a meter refuses a value that this leads to. Nothing is clamped, since that would change the beliefs
// that are recorded: the change is undone as a whole and reported. A change of a meter runs its handler at
// once, inside the assignment; the yoking relies on that.
#pragma once

#include <functional>

#include "platform/checkedInteger.h"

namespace modBeliefs {

/// What lblError says of a refusal; the next move of a meter that stands empties it.
inline constexpr const char* stepTooLarge = "Error: Step too large, please move in smaller steps";
inline constexpr const char* cannotRescale = "Error: Cannot rescale, please make beliefs add up to 1.00";

/// Certainty on a meter, percent.
inline constexpr int wholeBelief = 100;

Int16 beliefOf(Int16 row);

/// Greatest value of a yoked meter: it leaves room for 1 in every other row.
Int16 yokedMax();

/// Runs a change of the rows. Where a meter refuses a value, the whole dialog goes back to what it was
/// before, and the result is false. While the dialog loads there is nothing to go back to, and a refusal
/// faults (Invalid property value).
bool changeAsWhole(const std::function<void()>& change);

/// Runs a change of the rows in which no meter pushes another.
void changeWithoutYoking(const std::function<void()>& change);

/// Whether meters push each other now.
bool areYoked();

/// Change handler of hsbBelief(row): one move, which stands or is undone with the row's own meter.
void meterMoved(Int16 row);

/// Row `row` has a new belief: with yoked meters the excess over 100 is taken from the neighbours, then the
/// caption follows and the buttons are enabled. Lowering a meter raises no other.
void beliefChanged(Int16 row);

/// Rescales the beliefs to a sum of 100, unless they add up to 90 to 100 or to nothing, each rounded down.
/// False if a meter refuses its part: then nothing has changed.
bool normalizeBeliefs();

}  // namespace modBeliefs
