// The case of a patient: the hidden disease and the presence of each symptom, drawn afresh each time a
// person is presented, from the statistics of the scenario.
#pragma once

#include <string>

namespace modPatient {

/// Draws the disease by the base rates. Rates that add up to less than the draw leave the last disease.
void drawDisease();

/// Draws each symptom by its chance with the disease, independently of the others. With sixteen symptoms a
/// present first one overflows the mask.
void drawFindings();

/// The pattern of findings as digits, one a symptom, symptom 0 leftmost.
std::string findingsText();

}  // namespace modPatient
