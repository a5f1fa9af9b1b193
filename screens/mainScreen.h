// What the main screen does of its own: the two ticks that move more than one module, vital signs on
// request, and the label of the development frame.
#pragma once

#include "forms/control.h"

namespace mainScreen {

/// One simulated minute: the clock, the hourly plot, the tests.
void clockTick();

/// One step of health, and its label.
void healthTick();

/// A double click asks for a vital sign; all patients show the same normal `value`.
void showSign(Control& sign, const char* value);

/// Shows the hidden disease or hides it again.
void turnAnswer();

}  // namespace mainScreen
