// Names and descriptions of the widgets for people who do not see them.
#pragma once

#include <QWidget>

#include "forms/control.h"

namespace names {

/// Gives the widget its object name, the control's full name, and its accessible name and description.
void describe(QWidget& widget, const Control& control);

/// What a screen reader says for a control now; a label that shows a value says its tag first.
QString accessibleName(const Control& control);

}  // namespace names
