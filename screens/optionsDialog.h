// The options dialog: its rules among the tick boxes, the keys of the start time, its title and its start.
#pragma once

namespace optionsDialog {

/// Binds the handlers of frmOptions; once per program.
void wire();

/// The dialog is created: numbers beside the scroll bars, and the title with the scenario of the sign-in.
/// Later calls in the same run change nothing.
void load();

}  // namespace optionsDialog
