// What simulated subjects reached, as plain tables for a terminal of 80 columns.
#pragma once

#include <span>
#include <string>

#include "study/pilotFigures.h"

namespace summary {

/// Lines for each scenario and policy, what the columns mean, and the warnings, each a paragraph.
std::string textOf(std::span<const pilotFigures::Outcome> outcomes, std::span<const std::string> warnings);

}  // namespace summary
