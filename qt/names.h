// Names and descriptions of the widgets for people who do not see them, and the order of the Tab key.
#pragma once

#include <QWidget>

#include "forms/control.h"

namespace names {

/// Gives the widget its object name, the control's full name, and its accessible name and description.
void describe(QWidget& widget, const Control& control);

}  // namespace names
