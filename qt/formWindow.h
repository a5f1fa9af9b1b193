// The window of a form: its scale, its buttons, how it opens and closes.
#pragma once

#include <QWidget>
#include <functional>

#include "forms/control.h"

namespace formWindow {

/// Makes the window of a form. `layOut` places its controls anew when the scale has changed.
void make(Control& form, std::function<void()> layOut);

/// The main screen's controls have come or gone: its content takes the room that there is.
void fit(Control& form);

/// A dialog or box that is minimised comes back: whoever minimises it would be left with a program that takes
/// no input.
void keepUp(QWidget& widget);

QWidget* of(const Control& form);

/// The main screen's, over which dialogs and boxes stand.
QWidget* mainWindow();

/// Brings a property of the form to its window.
void show(Control& form, Property property);

}  // namespace formWindow
