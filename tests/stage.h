// What the tests of the logic stand on: a study with a store, a host whose time stands still unless moved and
// whose message boxes are kept and answered with OK or Yes, and a scenario in memory.
#pragma once

#include <cstdint>
#include <exception>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/host.h"
#include "state/TrialState.h"
#include "tests/faults.h"
#include "tests/temporaryStudy.h"

struct ProgramEnded : std::exception {};

/// The run is put back to its start for each.
class Logic : public testing::Test {
protected:
    Logic();

    TemporaryStudy study;
    std::vector<MessageBox> boxes;
    std::uint32_t now = 0;  ///< milliseconds
    TrialState& s = trialState;

    /// The boxes since the last call, each as its title, "|" and its text, parted by "/".
    std::string said();
};

/// These draws come next, and no others that were queued.
void draw(std::initializer_list<double> next);

/// Rates of the diseases Aavo, Brill, Corvex and Dunnit in percent, and for each symptom (Pallor, Quiver ...)
/// its chances with each of them. The one patient, Anna at 75 points, has the first disease.
void setScenario(const std::vector<int>& rates, const std::vector<std::vector<int>>& symptoms = {});
