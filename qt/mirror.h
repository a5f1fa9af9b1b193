// The forms as windows: a widget for each control, kept in step with the records, and the windows' own
// behaviour.
#pragma once

#include <QWidget>

#include "forms/control.h"

namespace mirror {

/// Builds all windows, hidden, and watches the records. Handlers must be bound before.
void build();

/// The widget of a control, the window of a form.
QWidget* widgetOf(const Control& control);

/// The control whose widget, or a part of it, this is; none for a stranger.
Control* controlOf(QWidget* widget);

}  // namespace mirror
