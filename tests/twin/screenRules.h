// What must hold for the real widgets after each command: they show what the records hold, and the mouse
// reaches what takes input.
#pragma once

#include <string>

namespace screenRules {

/// The first rule that is broken now, with the control and what is wrong; empty if all hold.
std::string broken();

}  // namespace screenRules
