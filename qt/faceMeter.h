// Belief meters and the bars of the options as scroll bars: an arrow at each end steps by one, a press in the
// trough by as much as the control says, and the thumb has room to be set with the mouse.
#pragma once

#include "forms/control.h"

namespace faceMeter {

/// The smallest scale of a form, pixels per twip, at which the thumb of each of its meters that can be moved
/// has 100 device pixels to travel; 0 for a form without one.
double leastScale(const Control& form, double pixelRatio);

}  // namespace faceMeter
