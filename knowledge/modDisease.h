// The statistical truth of a scenario: base rates of the diseases, and the chance of each symptom with each
// disease. Loaded whole, and formatted as the fixed-width texts that the subject may be shown.
#pragma once

#include <string>

#include "state/records.h"
#include "store/layer/recordSet.h"

namespace modDisease {

/// Base rates of all scenarios, sorted by scenario. They are reached by the position of the scenario in the
/// sign-in list, so the table needs one row for each scenario.
void loadBaseRates();

/// The disease-symptom table of the chosen scenario. Without rows nothing changes and nothing is said.
void loadDiseaseSymptom();

/// The percent of the current row in column D, the disease's number from 1 on, and the suffix.
Int16 readPercent(RecordSet& row, Int16 disease, const std::string& suffix = {});

/// Those of so many diseases; a negative number faults.
List<Int16> readPercents(RecordSet& row, Int16 count);

/// Base rates of the chosen scenario.
const ProbabilityRow& currentBaseRates();

/// One line: the rates under the columns of the table below it.
std::string baseRateText();

/// The many-line table. Sets the caption of lblSvD to its header; a word of more than 15 characters faults
/// with Invalid procedure call.
std::string symptomDiseaseText();

/// The compact table of the feedback.
std::string symptomDiseaseSummary();

}  // namespace modDisease
