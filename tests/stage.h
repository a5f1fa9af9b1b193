// What the tests of the logic stand on: a study with a store, a host whose time stands still unless moved and
// whose message boxes are kept and answered as told, and a scenario in memory for those who need no store.
#pragma once

#include <cstdint>
#include <deque>
#include <exception>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/host.h"
#include "state/TrialState.h"
#include "tests/faults.h"
#include "tests/temporaryStudy.h"

struct ProgramEnded : std::exception {
    int status;
    explicit ProgramEnded(int its) : status(its) {}
};

/// The run is put back to its start for each.
class Logic : public testing::Test {
protected:
    Logic();

    TemporaryStudy study;
    std::vector<MessageBox> boxes;  ///< all that were shown
    std::deque<Answer> answers;     ///< of the boxes to come; Yes, or OK, when there are none
    std::uint32_t now = 0;          ///< milliseconds
    TrialState& s = trialState;

    /// The boxes since the last call, each as its title, "|" and its text, parted by "/".
    std::string said();
};

/// These draws come next, and no others that were queued.
void draw(std::initializer_list<double> next);

/// Rates of the diseases Aavo, Brill, Corvex and Dunnit in percent, and for each symptom (Pallor, Quiver ...)
/// its chances with each of them. The one patient, Anna at 75 points, has the first disease.
void setScenario(const std::vector<int>& rates, const std::vector<std::vector<int>>& symptoms = {});
