// A host for tests of the logic: time that stands still unless moved, message boxes that are kept and
// answered as told, and the end of the program as something to catch; and a scenario without a store.
#pragma once

#include <cstdint>
#include <deque>
#include <initializer_list>
#include <string>
#include <vector>

#include "platform/host.h"

struct ProgramEnded {
    int status;
};

struct Stage {
    std::string folder;             ///< the program's folder
    std::vector<MessageBox> boxes;  ///< all that were shown
    std::deque<Answer> answers;     ///< of the boxes to come; Yes, or OK, when there are none
    std::uint32_t now = 0;          ///< milliseconds

    /// Puts the host in place and the run back to its start.
    explicit Stage(std::string programFolder = {});

    /// The boxes since the last call, each as its title, "|" and its text, parted by "/".
    std::string said();
};

/// These draws come next, and no others that were queued.
void draw(std::initializer_list<double> next);

/// A scenario in memory: rates of the diseases Aavo, Brill, Corvex and Dunnit in percent, and by symptom
/// (Pallor, Quiver ...) the chances with each of them. Its one patient, Anna at 75 points, has the first
/// disease.
void setScenario(const std::vector<int>& rates, const std::vector<std::vector<int>>& symptoms = {});
