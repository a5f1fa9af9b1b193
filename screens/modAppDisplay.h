// The display of the main screen: its states around sign-in, the set-up for each patient, and the feedback.
#pragma once

namespace modAppDisplay {

/// Binds the display to the flow of the run; once per program.
void wire();

/// Per patient: pages, notes, tests, tables, hypotheses and treatments as a new patient finds them. More
/// than four diseases fault with Subscript out of range.
void setupPatientDisplay();

}  // namespace modAppDisplay
