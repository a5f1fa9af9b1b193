// Message boxes of the desktop.
#pragma once

#include <QMessageBox>

#include "platform/fault.h"
#include "platform/host.h"

namespace boxes {

/// The box as a widget over the active window, not yet on show. Without a title it has the program's name.
QMessageBox* make(const MessageBox& box);

/// The answer that a pressed button stands for; a box that is closed without one counts as No, or as OK
/// where that is the only button.
Answer answerOf(const QMessageBox& widget, const MessageBox& box);

/// Shows a box and waits for its answer.
Answer show(const MessageBox& box);

/// Reports a run-time fault.
void showFault(const Fault& fault);

}  // namespace boxes
