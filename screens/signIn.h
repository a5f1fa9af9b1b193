// Sign-in and questionnaire: a name check without a password. A new name answers the questionnaire and is
// recorded, a known one goes straight on.
#pragma once

namespace signIn {

/// Binds the handlers of frmLogin and frmNewSubject; once per program.
void wire();

/// Whether `subjectName` has no row in SubjectInfo, letter case aside.
bool isNewSubject();

/// Adds the row of a new subject from the questionnaire's controls.
void recordSubject();

}  // namespace signIn
