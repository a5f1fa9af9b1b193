// The feedback and score frames at the end of a patient: what the subject did beside what was true, and how
// the score moved. A label that a trial leaves alone keeps its text, and the record takes it as it stands.
#pragma once

namespace feedback {

/// Fills both frames after the evaluation and brings them up.
void show();

}  // namespace feedback
