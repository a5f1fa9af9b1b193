// A scenario of a study, saved or not, as a simulated subject would know it: read from the tables themselves,
// without the program that plays them. Values that are no numbers count as 0, as in the options.
#pragma once

#include <optional>
#include <vector>

#include "pilot/policy.h"
#include "study/checkStudy.h"

namespace studyTables {

struct Reading {
    Task task;  ///< diseases are named by their columns, D1, D2, ...
    Tables tables = {};
    double healthiest = 0;  ///< points, of the roster at the start
    int startHour = 0;
};

/// Nothing where the scenario's tables do not fit together or go beyond what the program can play.
std::optional<Reading> of(const check::Study& study, const check::Scenario& scenario);

}  // namespace studyTables
