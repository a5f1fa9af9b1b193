// The handlers of the main screen and of the diagnosis dialog: each event of a control and what it runs.
#pragma once

namespace mainScreen {

/// Binds the handlers of frmTavix and frmDiagnosis; once per program.
void wire();

}  // namespace mainScreen
