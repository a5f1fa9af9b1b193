// What a command that makes something tells on standard error.
#pragma once

#include <string>
#include <vector>

namespace commands {

/// Prints each note and at most twenty problems, and gives the exit status: 1 if there is a problem.
int told(const std::vector<std::string>& problems, const std::vector<std::string>& notes);

}  // namespace commands
