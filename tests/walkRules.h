// What must hold after each act of a walk, and the ends to which the program may bring one: two lists, each
// rule with its name. What the state does not keep is noted as it happens.
#pragma once

#include <string>

#include "forms/control.h"

namespace walkRules {

/// Listens to boxes, to new patients and to the end of the program. Once, when the first line is asked for.
void begin();

/// A change of a control, as it happens.
void note(const Control& control, Property property);

/// The first rule that is broken now, with what is wrong; empty if all hold. At a patient's end the rows of
/// the trial are compared as well, once.
std::string broken();

/// The same for the rows alone, after the program has ended.
std::string brokenRows();

/// The name of the end that has come after `act`, which is empty for a walk that went to its end; an empty
/// name for an end that nobody knows. `report` is what the program said on standard error.
std::string endName(const std::string& act, const std::string& report);

}  // namespace walkRules
