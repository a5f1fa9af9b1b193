// The display of the main screen: its states around sign-in, and the set-up for each patient.
#pragma once

namespace modAppDisplay {

/// The monitor's frame loses its caption.
void prepareForSignIn();

/// Status line, pages and notes come up.
void showTrialFrames();

/// Per patient: pages, notes, tests, tables, hypotheses and treatments as a new patient finds them. More
/// than four diseases fault with Subscript out of range.
void setupPatientDisplay();

}  // namespace modAppDisplay
