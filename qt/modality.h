// Modal forms: the windows behind one take no input, and their timers go on. The toolkit's own modality is
// not used for forms, since it would also keep the main screen from being closed, which ends the program at
// any point.
#pragma once

#include <QWidget>

namespace modality {

/// Keeps input from windows that stand behind a modal one, from now on.
void enforce();

/// Whether the widget's window takes no input, since something modal stands before it.
bool standsBehind(const QWidget& widget);

}  // namespace modality
