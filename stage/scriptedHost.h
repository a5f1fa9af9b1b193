// The host of a program that is played and not waited for: virtual time, message boxes that are kept, and
// waits that go on playing. Who plays, a script or a simulated subject, is handed in as two functions.
#pragma once

#include <functional>
#include <string>

#include "platform/host.h"

namespace scriptedHost {

struct Player {
    /// Plays on by one step; called again and again while the program waits in a modal form or a box.
    std::function<void()> step;
    /// The program begins to wait; may be empty.
    std::function<void()> waits;
};

struct Start {
    std::string folder;  ///< the program's folder
    std::string now;     ///< date and time at the start, "2026-01-05 09:30:00"
};

/// Begins anew at virtual millisecond 0; false for a date and time that are none.
bool begin(const Start& start, Player whoPlays);

/// The host itself. `endProgram` is left to the program.
Host make();

/// Answers the newest message box.
void answerBox(Answer answer);

}  // namespace scriptedHost
