// What is read from the store when a run begins: the list of scenarios, the options of the chosen one, and
// all case tables in their fixed order. It stands here because it calls every loader of the knowledge.
#pragma once

namespace modAppLoad {

/// Fills cboType of the sign-in with all scenarios and preselects the first.
void listSettings();

/// Fills the options from the row of the chosen scenario, once per run. A missing row or a
/// TreatmentProperty other than 1, 0 and -1 ends the program with a box; a Time or SimRate out of range
/// faults with Invalid property value.
void loadOptions();

/// Roster, base rates, disease-symptom table, words, test times, treatments.
void loadCaseData();

/// The scenario box of the development frame: loads the case tables of another scenario in mid-run. The
/// options are not loaded again.
void changeSetting();

}  // namespace modAppLoad
