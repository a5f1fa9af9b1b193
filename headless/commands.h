// The commands of the script language.
#pragma once

#include <string>

#include "headless/player.h"

namespace commands {

/// Who acts.
void setPerson(player::Person person);

/// Carries out one line. A command that cannot be done throws Refused with the reason.
void execute(const std::string& line);

}  // namespace commands
