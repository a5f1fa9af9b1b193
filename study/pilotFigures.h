// What simulated subjects reached: for each scenario and policy how patients ended and how long they lived,
// how the score moved, and how beliefs stood to the chances.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "store/layer/engine.h"
#include "study/figures.h"
#include "study/survival.h"

namespace pilotFigures {

/// The error is the standard error over subjects, since the patients of one subject are not independent.
struct Mean {
    double value;
    std::optional<double> error;  ///< nothing with fewer than two subjects
};

/// One policy in one scenario.
struct Outcome {
    std::string scenario;
    std::string policy;
    int subjects = 0;
    /// How many sessions did not come to the end of their last patient, by what `pilotSubjects` says of it.
    std::vector<std::pair<std::string, int>> brokenOff;
    figures::Figures figures;             ///< without times of acts
    std::optional<figures::Spread> life;  ///< simulated minutes until any end, of patients with one
    double meanLife = 0;                  ///< of the same
    std::vector<survival::Step> survival;
    double startScore = 0;                 ///< of a new subject
    std::optional<Mean> change;            ///< of the score with a patient
    double tests = 0;                      ///< issued, a finished patient
    double belief = 0;                     ///< mean in the hidden disease, of those with a chance
    double chance = 0;                     ///< mean of it
    std::optional<double> miscalibration;  ///< mean of |belief - share true| over the tenths of belief
};

/// What stands for the policy of subjects that no pilot has played.
inline constexpr const char* people = "people";

/// By scenario, then by policy, each sorted. Throws
/// std::runtime_error, which names the table that cannot be read.
std::vector<Outcome> of(engine::Connection& store);

}  // namespace pilotFigures
