// Message boxes of the desktop. Like the forms they are modal by the program's own rule: what came last takes
// the input.
#pragma once

#include <QMessageBox>
#include <functional>
#include <string>

#include "platform/host.h"

namespace boxes {

/// Shows the box over all windows; `answered` is told once. Without a title it has the program's name. Only
/// its buttons answer a question; an OK box can be closed too.
QMessageBox* open(const MessageBox& box, const std::function<void(Answer)>& answered);

/// The newest box on show, or none.
QMessageBox* newest();

/// Shows a box and waits for its answer.
Answer show(const MessageBox& box);

/// Shows what ended the program and waits until it has been read.
void showError(const std::string& report);

}  // namespace boxes
