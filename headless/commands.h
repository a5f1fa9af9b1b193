// The commands of the script language.
#pragma once

#include <string>

#include "headless/actingPerson.h"

namespace commands {

/// Who acts.
void setPerson(ActingPerson person);

/// The program waits in a modal form or a message box: a `run` that is suspended by it looks now whether what
/// it waits for has come, since it may be gone again when the wait is over.
void onWaiting();

/// A line for each command: its words and what it does.
std::string help();

/// Carries out one line of a script. A command that cannot be done throws Refused with the reason.
void execute(const std::string& text);

}  // namespace commands
