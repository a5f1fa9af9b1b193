// The options dialog: its rules among the tick boxes, the keys of the start time, its numbers and its title.
#pragma once

#include "forms/control.h"

namespace optionsDialog {

/// The numbers beside the scroll bars.
void showLength();
void showRate();

/// One treatment and risk exclude each other: the one that is ticked unticks the other.
void oneTreatmentClicked();
void riskClicked();

/// Ticked, it ticks risk and then one treatment, whose own rule takes risk off again.
void treatmentsClicked();

/// Keys in hour and minute: two digits at most by typing, Enter starts, Backspace passes, all else is
/// dropped.
bool keyInTime(const Control& box, int code);

/// The dialog is created: numbers beside the scroll bars, and the title with the scenario of the sign-in.
/// Later calls in the same run change nothing.
void load();

}  // namespace optionsDialog
