// The record of what happened: one row of dataTrial per patient, added before the trial and completed after
// it, and one row of dataEvents for every action of the subject at the moment it happens.
#pragma once

#include <string>

#include "platform/checkedInteger.h"

namespace modAppRecord {

/// Subject and trial number, the stem of all identifiers: "kim03_".
std::string trialStem();

/// Subject, trial number and count of diagnoses: "kim03_02".
std::string stateId();

/// Adds the row of the trial, and with DiagnoseAllDiseases the state of the beliefs at its start. `findings`
/// is the pattern of the patient's symptoms, a digit each. Returns the trial's key.
std::string recordTrialStart(const std::string& findings);

/// The main screen's belief meters as the state at the start, one column per symptom of the model. More
/// than four symptoms fault with Subscript out of range.
void recordInitialHypothesisState();

/// Adds the row of one action, stamped with clock, health and diagnosis state; returns its EventID.
std::string recordEvent(const std::string& action, Int16 actionNum, const std::string& input, bool output);

/// Completes the row of the trial with what the feedback shows. Ends the program if the row is missing.
void recordTrialEnd();

}  // namespace modAppRecord
