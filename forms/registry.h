// All forms together: their design, and controls found by name.
#pragma once

#include <string>
#include <vector>

#include "forms/control.h"

namespace registry {

/// Puts every form back to its design, hidden and unloaded.
void designForms();

/// As at the start of the program: every form designed, bound to nothing and watched by nobody.
void reset();

/// The six forms, the main screen first.
std::vector<Control*> forms();

/// The control, or form, of that full name ("frmTavix.optTest(2)"), or none.
Control* find(const std::string& fullName);

/// Controls placed in a container.
std::vector<Control*> childrenOf(const Control& container);

}  // namespace registry
