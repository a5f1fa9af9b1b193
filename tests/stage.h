// A host for tests of the logic: time that stands still unless moved, message boxes that are kept and
// answered as told, and the end of the program as something to catch.
#pragma once

#include <cstdint>
#include <deque>
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
};
