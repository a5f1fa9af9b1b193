// The commands of the script language.
#pragma once

#include <string>

#include "headless/actingPerson.h"

namespace commands {

/// Who acts.
void setPerson(ActingPerson person);

/// Carries out one line of a script. A command that cannot be done throws Refused with the reason.
void execute(const std::string& text);

}  // namespace commands
