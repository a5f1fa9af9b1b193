// The player of scripts: reads commands one by one and acts on the forms as a person would. Where the
// program waits, in a modal form or a message box, the waiting itself goes on reading the script.
#pragma once

#include <istream>

#include "headless/actingPerson.h"
#include "stage/scriptedHost.h"

namespace player {

/// The person of the headless program.
ActingPerson onRecords();

/// Begins a script for that person; false for a date that is none.
bool begin(std::istream& script, ActingPerson person, const scriptedHost::Start& start);

/// Plays the next command. At the end of the script the program ends.
void step();

}  // namespace player
