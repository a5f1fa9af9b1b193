// What a script can ask of a control: its properties.
#pragma once

#include <optional>
#include <string>

#include "forms/control.h"
#include "headless/scriptValue.h"

namespace properties {

/// The property; places in twips. Nothing for a property that the kind of control does not have.
std::optional<ScriptValue> read(const Control& control, const std::string& property);

}  // namespace properties
