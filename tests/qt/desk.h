// All windows of the program on an offscreen desk, for tests of how they look and what they say.
#pragma once

#include <QWidget>
#include <vector>

#include "forms/control.h"

namespace desk {

/// Builds the windows once for all tests of the program.
void lay();

/// The windows in which a person works: all but the splash.
std::vector<Control*> workForms();

/// Shows a form with every control that some study can show.
void showWhole(Control& form);

/// The widgets of a form that the Tab key reaches, in its order.
std::vector<QWidget*> tabOrder(const Control& form);

}  // namespace desk
