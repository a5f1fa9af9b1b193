// Groups of option buttons: the Tab key stops once at each, at the button that is chosen, or else at the
// first that can be.
#pragma once

#include "qt/faces.h"

namespace optionGroups {

/// Keeps the stops of the Tab key in step with the records from now on.
void follow(WidgetOf widgetOf);

}  // namespace optionGroups
