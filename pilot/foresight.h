// Whether the next test is worth its cost. Tests come in the order of their expected information; what is
// weighed is to stop here against going on, over all results that may come, to the last test. A test costs
// score and time, and with the time goes health, which is what a saved patient is paid by.
#pragma once

#include <vector>

#include "pilot/inference.h"

namespace foresight {

/// What the mean step of the health takes in a simulated minute, in points.
inline constexpr double healthLostPerMinute = 0.2;

/// How a patient stands.
struct Moment {
    double health = 0;              ///< points
    double minutesLeft = 0;         ///< simulated, until the time limit
    double minutesToAct = 0;        ///< simulated, that pass from a result until the next act is done
    std::vector<int> lengths = {};  ///< of the tests, simulated minutes
};

/// The test to issue now: the most informative one, if going on with it promises more score than stopping. -1
/// where it does not, or where none is left that comes back before the patient is likely to die.
int nextTest(const Task& task, const Tables& tables, const inference::Results& results, const Moment& moment);

}  // namespace foresight
