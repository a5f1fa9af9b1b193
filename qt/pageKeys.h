// Keys that turn the pages of a window wherever its focus is: Ctrl with Tab or PageDown to the next, with
// Shift and Tab or PageUp to the one before, round about.
#pragma once

#include "qt/faces.h"

namespace pageKeys {

/// From now on, in every window with pages.
void follow(WidgetOf widgetOf);

}  // namespace pageKeys
