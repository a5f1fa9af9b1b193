// The player of scripts: reads commands one by one and acts on the forms as a person would. Where the
// program waits, in a modal form or a message box, the waiting itself goes on reading the script.
#pragma once

#include <cstdint>
#include <functional>
#include <istream>
#include <optional>
#include <string>

#include "headless/actingPerson.h"
#include "stage/scriptedHost.h"

namespace player {

/// The person of the headless program.
ActingPerson onRecords();

/// Gives the next line of a script, or nothing at its end.
using Lines = std::function<std::optional<std::string>()>;
Lines linesOf(std::istream& script);

/// Begins a script for that person; false for a date that is none.
bool begin(Lines script, ActingPerson person, const scriptedHost::Start& start);

/// Plays a whole session in this process with the person of the headless program, from the start of the run
/// to the end of the script or of the program. The exit status; complaints go to standard error.
int playSession(Lines script, const scriptedHost::Start& start, std::uint64_t seed);

/// Plays the next command. At the end of the script the program ends.
void step();

}  // namespace player
