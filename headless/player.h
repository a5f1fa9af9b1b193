// The player of scripts: reads commands one by one and acts on the forms as a person would. Where the
// program waits, in a modal form or a message box, the waiting itself goes on reading the script.
#pragma once

#include <istream>
#include <string>

#include "headless/actingPerson.h"
#include "platform/host.h"

namespace player {

/// The person of the headless program.
ActingPerson onRecords();

/// Begins a script for that person. `folder` is the program's folder, `now` date and time of its start;
/// false for a date that is none.
struct Options {
    std::string folder;
    std::string now;
};
bool begin(std::istream& script, ActingPerson person, const Options& options);

/// A host for scripted programs: virtual time, modal waits and message boxes that read on in the script.
/// `endProgram` is left to the program.
Host scriptedHost();

/// Plays the next command. At the end of the script the program ends.
void step();

/// The message box on top, answered: used by a person who presses a real button.
void answerBox(Answer answer);

}  // namespace player
