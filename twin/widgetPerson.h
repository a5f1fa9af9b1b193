// The person of the desktop's twin: mouse and keys on the real widgets, found by the names of the controls.
#pragma once

#include <QAbstractButton>
#include <QMessageBox>

#include "headless/actingPerson.h"

namespace widgetPerson {

/// Acts on the widgets; refuses what the records refuse, with the same words.
ActingPerson make();

/// The message box on top, as a widget, for the person to answer.
void pushBox(QMessageBox* box);
void popBox();

}  // namespace widgetPerson
