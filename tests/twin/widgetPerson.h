// The person of the desktop's twin: mouse and keys on the real widgets, found by the names of the controls.
#pragma once

#include "headless/actingPerson.h"

namespace widgetPerson {

/// Acts on the widgets; refuses what the records refuse, with the same words.
ActingPerson make();

}  // namespace widgetPerson
